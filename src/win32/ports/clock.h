// The local calendar of Windows.
#ifndef TAGRIX_WIN32_PORTS_CLOCK_H
#define TAGRIX_WIN32_PORTS_CLOCK_H

#include "platform/clock.h"

namespace tagrix {

class WinClock : public Clock {
 public:
  int CurrentYear() override;
};

}  // namespace tagrix

#endif
