#include "base/times.h"

#include <cmath>

#include "base/text.h"

namespace tagrix {

std::wstring MinutesAndSeconds(double milliseconds) {
  if (milliseconds == 0) return {};
  const long long seconds = std::llround(milliseconds / 1000);
  return std::to_wstring(seconds / 60) + L":" + TwoDigits(static_cast<int>(seconds % 60));
}

}  // namespace tagrix
