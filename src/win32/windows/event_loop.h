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
  // Asks after each event: an answer that has come doesn't wait until all is painted.
  void RunUntil(const std::function<bool()>& done) override;
  std::uint64_t TickCount() override { return GetTickCount64(); }

 private:
  // Runs what is pending, but no more once it is done.
  void RunPending(const std::function<bool()>& done);
};

// Hands one message that was taken from the queue to whom it is for: keys first to the form that they are meant for.
// Throws what an event of a control has thrown.
void Dispatch(MSG& message);

}  // namespace tagrix

#endif
