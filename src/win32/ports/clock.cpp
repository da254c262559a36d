#include "win32/ports/clock.h"

#include <windows.h>

namespace tagrix {

int WinClock::CurrentYear() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now.wYear;
}

}  // namespace tagrix
