// Port to the calendar.
#ifndef TAGRIX_PLATFORM_CLOCK_H
#define TAGRIX_PLATFORM_CLOCK_H

namespace tagrix {

class Clock {
 public:
  virtual ~Clock() = default;
  // The current local year, four digits.
  virtual int CurrentYear() = 0;
};

}  // namespace tagrix

#endif
