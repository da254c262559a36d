// Playing times: their units, and how they are written.
#ifndef TAGRIX_BASE_TIMES_H
#define TAGRIX_BASE_TIMES_H

#include <string>

namespace tagrix {

inline constexpr int kFramesPerSecond = 75;  // CD frames

// The length of a track in milliseconds, from CD frames.
constexpr double FramesToMilliseconds(int frames) { return frames * (1000.0 / kFramesPerSecond); }

// A time as "m:ss", rounded to whole seconds; "" for 0, which means unknown.
std::wstring MinutesAndSeconds(double milliseconds);

}  // namespace tagrix

#endif
