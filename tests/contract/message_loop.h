// An event loop for tests without windows: it runs the thread's messages.
#ifndef TAGRIX_TESTS_CONTRACT_MESSAGE_LOOP_H
#define TAGRIX_TESTS_CONTRACT_MESSAGE_LOOP_H

#include <winsock2.h>
// Needs winsock2.h before it.
#include <windows.h>

#include "platform/event_loop.h"

namespace tagrix {

class MessageLoop : public EventLoop {
 public:
  void DoEvents() override {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  void Wait(int milliseconds) override {
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
  std::uint64_t TickCount() override { return GetTickCount64(); }
};

}  // namespace tagrix

#endif
