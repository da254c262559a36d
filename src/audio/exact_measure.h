// The playing time of an MPEG audio file as a decoder would find it, sample by sample.
#ifndef TAGRIX_AUDIO_EXACT_MEASURE_H
#define TAGRIX_AUDIO_EXACT_MEASURE_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/files.h"

namespace tagrix {

struct ExactLength {
  std::uint64_t samples;  // of each channel
  int samplingRate;       // in Hz
  double Milliseconds() const { return 1000.0 * static_cast<double>(samples) / samplingRate; }
};

// Of a file of MPEG 1, 2 or 2.5, layer I, II or III, whatever tags and garbage stand before, between and behind its
// frames: what its Xing, Info or VBRI header tells, where that agrees with the file's length, else what is there.
// Nothing when no frames are found or when `goOn`, which is asked now and then, says no. Throws Failure only when the
// file can't be read.
std::optional<ExactLength> MeasureExactly(Files& files, const std::wstring& path,
                                          const std::function<bool()>& goOn = {});

}  // namespace tagrix

#endif
