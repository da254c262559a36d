#include "win32/windows/form_tooltips.h"

// Needs windows.h before it.
#include <commctrl.h>

namespace tagrix {
namespace {

TOOLINFOW Tool(HWND form, UINT flags, UINT_PTR id) {
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = flags;
  tool.hwnd = form;
  tool.uId = id;
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  return tool;
}

}  // namespace

FormTooltips::~FormTooltips() {
  if (Made()) DestroyWindow(window_);
}

void FormTooltips::Make(int widest) {
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0,
                            0, form_, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, widest);
}

bool FormTooltips::PointerMoved() {
  const DWORD now = GetMessagePos();
  if (!firstPointer_) firstPointer_ = now;
  return *firstPointer_ != now;
}

void FormTooltips::AddWindow(HWND control) {
  TOOLINFOW tool = Tool(form_, TTF_IDISHWND | TTF_SUBCLASS, reinterpret_cast<UINT_PTR>(control));
  if (known_.insert(tool.uId).second) SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormTooltips::PlaceArea(UINT_PTR id, const RECT& area) {
  TOOLINFOW tool = Tool(form_, 0, id);
  tool.rect = area;
  const bool isNew = known_.insert(id).second;
  SendMessageW(window_, isNew ? TTM_ADDTOOLW : TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormTooltips::Tell(const MSG& message) const {
  if (Made()) SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

void FormTooltips::Hide() const {
  if (Made()) SendMessageW(window_, TTM_POP, 0, 0);
}

}  // namespace tagrix
