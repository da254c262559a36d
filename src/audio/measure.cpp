#include "audio/measure.h"

#include "audio/mp3.h"
#include "base/text.h"

namespace tagrix {

std::int32_t MeasureFile(Files& files, const std::wstring& path, const std::function<void()>& pause) {
  double milliseconds = 0;
  return GetMP3Duration(files, path, milliseconds, pause) ? RoundToInteger(milliseconds) : 0;
}

}  // namespace tagrix
