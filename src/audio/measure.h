// The playing time of a file as an album's lists keep it.
#ifndef TAGRIX_AUDIO_MEASURE_H
#define TAGRIX_AUDIO_MEASURE_H

#include <cstdint>
#include <functional>
#include <string>

#include "platform/files.h"

namespace tagrix {

// In milliseconds, rounded to nearest; 0 when the file is none that can be measured. Throws Failure when it can't be
// read or its header is not valid. `pause` is called now and then while the first frame is looked for.
std::int32_t MeasureFile(Files& files, const std::wstring& path, const std::function<void()>& pause = {});

}  // namespace tagrix

#endif
