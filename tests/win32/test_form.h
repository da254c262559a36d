// A form shown in a real window, and a user who works it.
#ifndef TAGRIX_TESTS_WIN32_TEST_FORM_H
#define TAGRIX_TESTS_WIN32_TEST_FORM_H

#include <windows.h>

#include <string>

#include "base/text.h"
#include "win32/windows/event_loop.h"
#include "win32/windows/form_window.h"

namespace tagrix {

// The window of a control, found by its name as tests in other processes find it; null when there is none.
inline HWND WindowNamed(HWND form, const std::string& name) {
  const ATOM atom = GlobalAddAtomW(Widen(name).c_str());
  const LRESULT found = SendMessageW(form, kFindControl, atom, 0);
  GlobalDeleteAtom(atom);
  return reinterpret_cast<HWND>(found);
}

inline std::wstring TextOf(HWND window) {
  std::wstring text(200, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

inline Size SizeOf(HWND window) {
  RECT area;
  GetWindowRect(window, &area);
  return {static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)};
}

class TestForm {
 public:
  explicit TestForm(Form& form) : window_(form, nullptr) {
    window_.Show();
    Settle();
  }

  HWND Window() const { return window_.Window(); }
  HWND operator[](const std::string& name) const { return WindowNamed(Window(), name); }
  bool Shows(const std::string& name) const { return IsWindowVisible((*this)[name]) != FALSE; }

  // Lets everything that is due happen, what was put off for a moment included.
  void Settle() {
    events_.DoEvents();
    Sleep(20);
    events_.DoEvents();
  }
  LRESULT Send(const std::string& name, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    const LRESULT result = SendMessageW((*this)[name], message, wParam, lParam);
    Settle();
    return result;
  }
  // Presses a key where the keyboard is.
  void Key(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    PostMessageW(GetFocus(), WM_KEYUP, key, 0);
    Settle();
  }
  void Type(const std::string& name, std::wstring_view text) {
    for (const wchar_t c : text) Send(name, WM_CHAR, c);
  }
  void ClickAt(const std::string& name, int x, int y) {
    Send(name, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    Send(name, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }

 private:
  FormWindow window_;
  WinEventLoop events_;
};

}  // namespace tagrix

#endif
