// window_floor_win32: a window with a text, and nothing else.
#include <windows.h>

namespace {

LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, w, l);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
  WNDCLASSW kind{};
  kind.lpfnWndProc = Handle;
  kind.hInstance = instance;
  kind.lpszClassName = L"trivial";
  kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  RegisterClassW(&kind);
  const HWND window = CreateWindowW(L"trivial", L"Trivial", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 600, nullptr,
                                    nullptr, instance, nullptr);
  CreateWindowW(L"STATIC", L"A text", WS_CHILD | WS_VISIBLE, 10, 10, 200, 30, window, nullptr, instance, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
