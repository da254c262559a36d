// How the files of an album compare with the tracks at their places: differences of time, and what they say.
#ifndef TAGRIX_MATCH_COMPARISON_H
#define TAGRIX_MATCH_COMPARISON_H

#include <vector>

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

// Over the places that have both times; milliseconds, signs ignored.
struct Deviations {
  int compared = 0;
  double maximum = 0, mean = 0, quadratic = 0;  // quadratic: the root of the mean square
};
Deviations DeviationsOf(const std::vector<Place>& places);

// FitsAsMeasured, TracksWithoutFile and FilesWithoutTrack: what can be compared fits.
enum class Verdict {
  Nothing,
  Fits,
  FitsAsMeasured,
  TracksWithoutFile,
  FilesWithoutTrack,
  OtherOrder,
  FileMissing,
  FileTooMany,
  PartlyFits,
  WrongDisc
};
struct Diagnosis {
  Verdict verdict = Verdict::Nothing;
  int place = 0;  // FileMissing: the track without a file; FileTooMany: the file without a track
};
// What the differences as a whole most likely mean.
Diagnosis Diagnose(const std::vector<Place>& places);

}  // namespace tagrix

#endif
