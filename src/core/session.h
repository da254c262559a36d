// What the lists of an album session agree on: the mark of a missing file, and the units of times.
#ifndef TAGRIX_CORE_SESSION_H
#define TAGRIX_CORE_SESSION_H

#include <string>
#include <string_view>

namespace tagrix {

// An entry of the file list that stands for a track without a file.
inline constexpr const wchar_t* kFakeTrack = L"**FAKE TRACK**";
// Whether the entry is that mark, letter case and blanks around it ignored.
bool IsFakeTrack(std::wstring_view entry);

// The length of a track in milliseconds, from CD frames of 1/75 second.
constexpr double FramesToMilliseconds(int frames) { return frames * (1000.0 / 75); }

// A time as "m:ss", rounded to whole seconds; "" for 0, which means unknown.
std::wstring MinutesAndSeconds(double milliseconds);

}  // namespace tagrix

#endif
