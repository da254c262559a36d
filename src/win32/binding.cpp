#include "win32/binding.h"

#include <exception>

#include "core/text.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kNameProperty = L"TagrixControl";
// Marks the windows whose user data is a binding: the parts of combo boxes have none.
constexpr const wchar_t* kBindingProperty = L"TagrixBinding";

}  // namespace

Binding::Binding(HWND form, const Control& control, const WindowKind& kind)
    : window_(CreateWindowExW(kind.exStyle, kind.className, L"", WS_CHILD | WS_CLIPSIBLINGS | kind.style, 0, 0, 0, 0,
                              form, nullptr, GetModuleHandleW(nullptr), nullptr)) {
  SetPropW(window_, kBindingProperty, this);
  NameWindow(window_, control.Name());
}

Binding::~Binding() {
  UnnameWindow(window_);
  RemovePropW(window_, kBindingProperty);
  DestroyWindow(window_);
}

void Binding::SetFonts(const Fonts& fonts) {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Normal()), TRUE);
}

Binding* Binding::Of(HWND window) { return static_cast<Binding*>(GetPropW(window, kBindingProperty)); }

void Binding::Subclass() { SetWindowSubclass(window_, Procedure, 0, reinterpret_cast<DWORD_PTR>(this)); }

LRESULT Binding::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefSubclassProc(window_, message, wParam, lParam);
}

LRESULT CALLBACK Binding::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR binding) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Procedure, id);
  try {
    return reinterpret_cast<Binding*>(binding)->Message(message, wParam, lParam);
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

void NameWindow(HWND window, const std::string& name) {
  const ATOM atom = GlobalAddAtomW(Widen(name).c_str());
  SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

void UnnameWindow(HWND window) {
  const HANDLE atom = RemovePropW(window, kNameProperty);
  if (atom != nullptr) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)));
}

}  // namespace tagrix
