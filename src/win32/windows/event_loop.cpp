#include "win32/windows/event_loop.h"

#include "win32/ports/message_window.h"
#include "win32/windows/form_window.h"

namespace tagrix {

void WinEventLoop::DoEvents() {
  RunPending([] { return false; });
}

void WinEventLoop::RunUntil(const std::function<bool()>& done) {
  for (; !done(); RunPending(done)) Wait(kLongestWait);
}

void WinEventLoop::RunPending(const std::function<bool()>& done) {
  // A fast download posts without end, and what is posted goes before the user's input: so that is let in between, and
  // the caller gets to look at what has come.
  constexpr ULONGLONG kLongest = 50;  // milliseconds
  const ULONGLONG start = GetTickCount64();
  MSG message;
  while (!done() && GetTickCount64() - start < kLongest && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    Dispatch(message);
    if (!done() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT | PM_QS_PAINT)) Dispatch(message);
  }
}

void WinEventLoop::Wait(int milliseconds) {
  // MWMO_INPUTAVAILABLE: what a peek has seen but left in the queue ends the wait, too.
  MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

void Dispatch(MSG& message) {
  FormWindow* form = FormWindow::Around(message.hwnd);
  if (form == nullptr || !form->TakeKey(message)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (form != nullptr) {
    form->Rethrow();
  } else {
    MessageWindow::Rethrow(message.hwnd);
  }
}

}  // namespace tagrix
