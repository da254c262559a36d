// Port to the window's event loop and its clock ticks.
#ifndef TAGRIX_PLATFORM_EVENT_LOOP_H
#define TAGRIX_PLATFORM_EVENT_LOOP_H

#include <cstdint>
#include <functional>

namespace tagrix {

class EventLoop {
 public:
  virtual ~EventLoop() = default;
  // Runs every event that is pending, then returns. The only place where events run inside an operation.
  virtual void DoEvents() = 0;
  // Waits, at most so long, for an event to arrive; doesn't run it.
  virtual void Wait(int milliseconds) = 0;
  // Runs events as they come, until `done`, which is asked at least every 20 ms when there are none.
  virtual void RunUntil(const std::function<bool()>& done) {
    for (; !done(); DoEvents()) Wait(kLongestWait);
  }
  // Milliseconds since some fixed moment.
  virtual std::uint64_t TickCount() = 0;

 protected:
  static constexpr int kLongestWait = 20;  // milliseconds
};

}  // namespace tagrix

#endif
