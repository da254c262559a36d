// The playing time of an MP3 file, from its first MPEG frame header and its "Xing" header.
#ifndef TAGRIX_AUDIO_MP3_H
#define TAGRIX_AUDIO_MP3_H

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tagrix {

// Measures the file from its first pair FF FA or FF FB, wherever that stands (ISO/IEC 11172-3, MPEG-1 Layer III): its
// whole length, tags included, at the bit rate of that frame or, with a "Xing" header at offset 36 of the frame, at the
// average rate that its count of frames gives.
// On success stores the playing time, whole milliseconds, and returns true. False, and `milliseconds` as it was, for a
// file shorter than 256 bytes or without such a pair. Throws Failure when the file can't be read, when the header holds
// a reserved value or a rate below 1 kbit/s, and for files of 256 MiB or more.
// `pause` is called now and then while a first frame far from the start is looked for.
bool GetMP3Duration(Files& files, const std::wstring& path, double& milliseconds,
                    const std::function<void()>& pause = {});

// The bits of the bytes as "1" and "0", most significant first, without leading zeros: all zeros give "". The bytes are
// used up: all are 0 afterwards.
std::string BytesToBin(std::array<std::uint8_t, 4>& bytes);
// The value of binary digits; any character but "1" counts as 0. At most 63 digits.
std::int64_t BinToLong(std::string_view digits);

}  // namespace tagrix

#endif
