#include "win32/ports/message_window.h"

namespace tagrix {

MessageWindow::~MessageWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

HWND MessageWindow::Handle() {
  if (window_ != nullptr) return window_;
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"TagrixMessages";
  RegisterClassW(&windowClass);  // fails when it is there already, which is as good
  window_ = CreateWindowExW(0, windowClass.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            windowClass.hInstance, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return window_;
}

void MessageWindow::Rethrow(HWND window) {
  if (GetClassLongPtrW(window, GCLP_WNDPROC) != reinterpret_cast<ULONG_PTR>(Procedure)) return;
  const auto self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr && self->failure_) std::rethrow_exception(std::exchange(self->failure_, nullptr));
}

LRESULT CALLBACK MessageWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  const auto self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || (message != WM_TIMER && message < WM_APP)) return DefWindowProcW(window, message, w, l);
  try {
    self->handler_(message, w, l);
  } catch (...) {
    self->failure_ = std::current_exception();
  }
  return 0;
}

}  // namespace tagrix
