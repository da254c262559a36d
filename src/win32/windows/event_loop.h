// The event loop of the window thread.
#ifndef TAGRIX_WIN32_WINDOWS_EVENT_LOOP_H
#define TAGRIX_WIN32_WINDOWS_EVENT_LOOP_H

#include <windows.h>

#include "platform/event_loop.h"

namespace tagrix {

class WinEventLoop : public EventLoop {
 public:
  void DoEvents() override;
  void Wait(int milliseconds) override;
  std::uint64_t TickCount() override { return GetTickCount64(); }
};

// Hands one message that was taken from the queue to whom it is for: keys first to the form that they are meant for.
// Throws what an event of a control has thrown.
void Dispatch(MSG& message);

}  // namespace tagrix

#endif
