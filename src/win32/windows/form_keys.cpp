#include "win32/windows/form_keys.h"

namespace tagrix {

bool IsHeld(const MSG& message) {
  constexpr LPARAM kWasDown = 1 << 30;
  if ((message.lParam & kWasDown) == 0) return false;
  const WPARAM key = message.wParam;
  switch (message.message) {
    case WM_KEYDOWN:
      return key == VK_RETURN || key == VK_ESCAPE;
    case WM_SYSKEYDOWN:
      return key != VK_UP && key != VK_DOWN && key != VK_MENU;
    case WM_SYSCHAR:
      return true;
    case WM_CHAR:  // elsewhere than where one writes it presses a button
      return (SendMessageW(GetFocus(), WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS) == 0;
    default:
      return false;
  }
}

std::optional<MeantKey> FormKeyOf(WPARAM key) {
  const bool control = GetKeyState(VK_CONTROL) < 0, shift = GetKeyState(VK_SHIFT) < 0;
  if (GetKeyState(VK_MENU) < 0) return std::nullopt;
  if (control && key >= '1' && key <= '9') return MeantKey{FormKey::Page, static_cast<int>(key - '1')};
  if (control && key == VK_TAB) return MeantKey{shift ? FormKey::PreviousPage : FormKey::NextPage, 0};
  // A field that can be edited undoes what was typed.
  if (control && key == 'Z' && SendMessageW(GetFocus(), EM_CANUNDO, 0, 0) == 0) return MeantKey{FormKey::Undo, 0};
  if (key == VK_F1) return MeantKey{FormKey::Help, 0};
  if (key == VK_F5) return MeantKey{FormKey::Reload, 0};
  return std::nullopt;
}

}  // namespace tagrix
