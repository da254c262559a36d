// How the files of an album compare with the tracks at their places: differences of time, and what they say.
#ifndef TAGRIX_DIALOGS_COMPARISON_H
#define TAGRIX_DIALOGS_COMPARISON_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// A file and the track at the same position. Times in milliseconds, 0: unknown.
struct Place {
  bool hasFile = false, hasTrack = false;  // a fake track is no file
  double file = 0, track = 0;
};

// Up to 3 seconds a file is taken for its track, whose length on the disc holds the pause after it; up to 10 it may be.
enum class Fit { Good, Doubtful, Wrong, Unmeasured, NoFile, NoTrack };
inline constexpr double kGoodMilliseconds = 3000, kDoubtfulMilliseconds = 10000;

Fit FitOf(const Place& place);
// How much longer the file is than the track.
inline double Difference(const Place& place) { return place.file - place.track; }

// The playing time of an MP3 file in milliseconds, rounded to nearest; 0 when it can't be measured. Throws Failure when
// it can't be read.
std::int32_t MeasureFile(Context& context, const std::wstring& path);

// The positions that the two lists have; files' values are milliseconds, tracks' values CD frames.
int PlaceCount(const ListBox& files, const ListBox& tracks);
Place PlaceAt(const ListBox& files, const ListBox& tracks, int i);
std::vector<Place> Places(const ListBox& files, const ListBox& tracks);

// Over the places that have both times; milliseconds, signs ignored.
struct Deviations {
  int compared = 0;
  double maximum = 0, mean = 0, quadratic = 0;  // quadratic: the root of the mean square
};
Deviations DeviationsOf(const std::vector<Place>& places);

// For each track in disc order the file closest to it among those left, the higher one of two that are equally close;
// taking a file moves the one at the track's place to where it was. Returns where each place's file stood before.
// `files` in milliseconds, `tracks` in CD frames; `placed` hears how many tracks are done.
std::vector<int> MatchFiles(
    std::vector<std::int32_t> files, const std::vector<std::int32_t>& tracks,
    const std::function<void(std::size_t tracksDone)>& placed = [](std::size_t) {});

enum class Verdict { Nothing, Fits, OtherOrder, FileMissing, FileTooMany, PartlyFits, WrongDisc };
struct Diagnosis {
  Verdict verdict = Verdict::Nothing;
  int place = 0;  // FileMissing: the track without a file; FileTooMany: the file without a track
};
// What the differences as a whole most likely mean.
Diagnosis Diagnose(const std::vector<Place>& places);

}  // namespace tagrix

#endif
