// The playing time of a file as an album's lists keep it.
#ifndef TAGRIX_AUDIO_MEASURE_H
#define TAGRIX_AUDIO_MEASURE_H

#include <cstdint>
#include <functional>
#include <string>

#include "platform/files.h"

namespace tagrix {

struct FileTime {
  std::int32_t milliseconds = 0;  // rounded to nearest; 0: the file is none that can be measured
  bool exact = false;
};

// The quick way, by size and bit rate (GetMP3Duration); a file for which that has no answer is measured exactly. Throws
// Failure when it can't be read. `goOn` is asked now and then; when it says no, the exact way ends without an answer.
FileTime MeasureFile(Files& files, const std::wstring& path, const std::function<bool()>& goOn);
// Exactly in any case (MeasureExactly).
FileTime MeasureFileExactly(Files& files, const std::wstring& path, const std::function<bool()>& goOn);

}  // namespace tagrix

#endif
