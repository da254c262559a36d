// Finding frames in what may be sound, and counting them.
#ifndef TAGRIX_AUDIO_FRAME_WALK_H
#define TAGRIX_AUDIO_FRAME_WALK_H

#include <cstdint>
#include <optional>

#include "audio/byte_window.h"
#include "audio/mpeg_frame.h"

namespace tagrix {

// Where frames begin that agree with each other.
struct FoundFrames {
  std::uint64_t at;
  FrameFormat format;
};

// The first frames from `at` on. Three headers in a row have to agree, fewer where the sound ends behind them: what
// looks like one header stands in every picture.
std::optional<FoundFrames> FindFrames(ByteWindow& bytes, std::uint64_t at, std::uint64_t end);

// Follows the frames up to the end, over garbage and tags between them. Returns the samples of a channel, at the rate
// of the first frames; parts of other rates count by the time they take. A frame that the end cuts doesn't count.
std::uint64_t WalkFrames(ByteWindow& bytes, const FoundFrames& first, std::uint64_t end);

// The same without reading it all, where frames of the first one's bit rate stand at several places just where they
// would if all frames were of that rate; nothing where they don't.
std::optional<std::uint64_t> CountAtConstantRate(ByteWindow& bytes, const FoundFrames& first, std::uint64_t end);

}  // namespace tagrix

#endif
