// The headers with which encoders tell in the first frame of a file how long it is.
#ifndef TAGRIX_AUDIO_LENGTH_HEADER_H
#define TAGRIX_AUDIO_LENGTH_HEADER_H

#include <cstdint>
#include <optional>
#include <string_view>

#include "audio/mpeg_frame.h"

namespace tagrix {

struct LengthHeader {
  std::uint32_t frames = 0, bytes = 0;  // 0: not told. The frame that holds the header is no sound, but bytes count it
  // Samples that the encoder added before and behind the sound, where it tells.
  struct Added {
    std::uint32_t before = 0, behind = 0;
  };
  std::optional<Added> added;

  // Whether a file can be so, with `sound` bytes from the start of this frame, which is `own` bytes long, to the end:
  // less than a frame more or less.
  bool Agrees(const FrameFormat& format, std::uint64_t sound, std::uint64_t own) const;
  // What a decoder makes of so many samples, which are of frames behind this one: it leaves out what was added, and by
  // how much it lags itself.
  std::uint64_t Audible(std::uint64_t samples, const FrameFormat& format) const;
};

// The "Xing" or "Info" header behind a frame's side information, with what LAME writes behind it, or the "VBRI" header
// of Fraunhofer's encoders.
std::optional<LengthHeader> ReadLengthHeader(std::string_view frame, const FrameFormat& format);

}  // namespace tagrix

#endif
