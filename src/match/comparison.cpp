#include "match/comparison.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/text.h"
#include "base/times.h"
#include "match/sort_files.h"

namespace tagrix {
namespace {

using Index = std::size_t;

bool Fits(double file, double track) {
  return FitOf({.hasFile = true, .hasTrack = true, .file = file, .track = track}) == Fit::Good;
}

// Four in five: the rest may be other recordings of the tracks.
bool Most(int part, int whole) { return whole > 0 && part * 5 >= whole * 4; }

int CountGood(const std::vector<Place>& places) {
  return static_cast<int>(
      std::count_if(places.begin(), places.end(), [](const Place& place) { return FitOf(place) == Fit::Good; }));
}

// Whether the files would fit if they were sorted anew: all of them, or most where most don't now.
bool FitsInOtherOrder(std::vector<Place> places) {
  std::vector<std::int32_t> files, tracks;
  for (const Place& place : places) {
    files.push_back(RoundToInteger(place.file));
    tracks.push_back(RoundToInteger(place.track / FramesToMilliseconds(1)));
  }
  const bool mostFit = Most(CountGood(places), DeviationsOf(places).compared);
  const std::vector<int> order = SortFiles(files, tracks);
  for (Index i = 0; i < places.size(); ++i) places[i].file = files[static_cast<Index>(order[i])];
  const int good = CountGood(places), compared = DeviationsOf(places).compared;
  return mostFit ? good == compared : Most(good, compared);
}

// Whether from that place on most files fit the next track (a file is missing there) or the one before (one too many).
bool FitsShifted(const std::vector<Place>& places, Index from, bool fileMissing) {
  int fitting = 0, compared = 0;
  for (Index i = from; i + 1 < places.size(); ++i) {
    const double file = places[fileMissing ? i : i + 1].file, track = places[fileMissing ? i + 1 : i].track;
    if (file == 0 || track == 0) continue;
    ++compared;
    if (Fits(file, track)) ++fitting;
  }
  return Most(fitting, compared);
}

}  // namespace

Fit FitOf(const Place& place) {
  if (!place.hasFile) return Fit::NoFile;
  if (!place.hasTrack) return Fit::NoTrack;
  if (place.file == 0 || place.track == 0) return Fit::Unmeasured;
  const double deviation = std::abs(Difference(place));
  if (deviation <= kGoodMilliseconds) return Fit::Good;
  return deviation <= kDoubtfulMilliseconds ? Fit::Doubtful : Fit::Wrong;
}

Deviations DeviationsOf(const std::vector<Place>& places) {
  Deviations result;
  double sum = 0, squares = 0;
  for (const Place& place : places) {
    if (place.file == 0 || place.track == 0) continue;
    const double deviation = std::abs(Difference(place));
    ++result.compared;
    result.maximum = std::max(result.maximum, deviation);
    sum += deviation;
    squares += deviation * deviation;
  }
  if (result.compared > 0) {
    result.mean = sum / result.compared;
    result.quadratic = std::sqrt(squares / result.compared);
  }
  return result;
}

Diagnosis Diagnose(const std::vector<Place>& places) {
  const int compared = DeviationsOf(places).compared, good = CountGood(places);
  if (compared == 0) return {Verdict::Nothing};
  if (good == compared) {
    const auto any = [&](Fit fit) {
      return std::any_of(places.begin(), places.end(), [fit](const Place& place) { return FitOf(place) == fit; });
    };
    if (any(Fit::NoFile)) return {Verdict::TracksWithoutFile};
    if (any(Fit::NoTrack)) return {Verdict::FilesWithoutTrack};
    return {any(Fit::Unmeasured) ? Verdict::FitsAsMeasured : Verdict::Fits};
  }

  const auto complete = [](const Place& place) { return place.hasFile && place.hasTrack; };
  if (std::all_of(places.begin(), places.end(), complete)) {
    if (FitsInOtherOrder(places)) return {Verdict::OtherOrder};
  } else {
    const auto first = std::find_if(places.begin(), places.end(), [](const Place& place) {
      const Fit fit = FitOf(place);
      return fit == Fit::Doubtful || fit == Fit::Wrong;
    });
    const auto from = static_cast<Index>(first - places.begin());
    if (FitsShifted(places, from, true)) return {Verdict::FileMissing, static_cast<int>(from)};
    if (FitsShifted(places, from, false)) return {Verdict::FileTooMany, static_cast<int>(from)};
  }
  return {good * 2 >= compared ? Verdict::PartlyFits : Verdict::WrongDisc};
}

}  // namespace tagrix
