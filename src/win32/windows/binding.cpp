#include "win32/windows/binding.h"

#include <exception>

namespace tagrix {

Binding::Binding(const Site& site, const Control& control, const WindowKind& kind)
    : window_(CreateWindowExW(kind.exStyle, kind.className, control.Text().c_str(),
                              WS_CHILD | WS_CLIPSIBLINGS | kind.style | site.state, site.rect.x, site.rect.y,
                              site.rect.width, site.rect.height, site.form, nullptr, GetModuleHandleW(nullptr),
                              nullptr)) {}

Binding::~Binding() { DestroyWindow(window_); }

void Binding::SetPalette(const Palette& palette) {
  palette_ = &palette;
  // The light look is the system's own.
  if (!palette.dark && !themed_) return;
  themed_ = true;
  ApplyToScrollBars(window_, palette);
  Subclass();
}

void Binding::SetFonts(const Fonts& fonts) {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Normal()), FALSE);
}

void Binding::Subclass() {
  if (original_ != nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  original_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(Procedure))));
}

LRESULT Binding::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcW(original_, window_, message, wParam, lParam);
}

LRESULT CALLBACK Binding::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  try {
    return reinterpret_cast<Binding*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Message(message, wParam, lParam);
  } catch (...) {
    const std::exception_ptr failure = std::current_exception();
    SendMessageW(GetParent(window), kFailed, 0, reinterpret_cast<LPARAM>(&failure));
    return 0;
  }
}

std::wstring Binding::WindowText() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)), L'\0');
  // The length may be an estimate.
  text.resize(static_cast<std::size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

void Binding::ShowText(const std::wstring& text) {
  if (WindowText() != text) SetWindowTextW(window_, text.c_str());
}

}  // namespace tagrix
