#include "match/sort_files.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "base/text.h"
#include "base/times.h"

namespace tagrix {
namespace {

constexpr double kCloseMilliseconds = 2000, kFarMilliseconds = 10000;

// Deviations of the places that have both a file and a track; milliseconds.
std::vector<double> DeviationsIn(const std::vector<int>& order, const std::vector<std::int32_t>& files,
                                 const std::vector<std::int32_t>& tracks) {
  std::vector<double> deviations(std::min(order.size(), tracks.size()));
  for (std::size_t i = 0; i < deviations.size(); ++i) {
    deviations[i] = std::abs(files[static_cast<std::size_t>(order[i])] - FramesToMilliseconds(tracks[i]));
  }
  return deviations;
}

// Where the values stand, from the least to the greatest.
std::vector<std::size_t> Ascending(const std::vector<std::int32_t>& values) {
  std::vector<std::size_t> places(values.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) { return values[a] < values[b]; });
  return places;
}

}  // namespace

std::vector<int> SortFiles(std::vector<std::int32_t> files, const std::vector<std::int32_t>& tracks,
                           const std::function<void(std::size_t tracksDone)>& placed) {
  std::vector<int> order(files.size());
  std::iota(order.begin(), order.end(), 0);
  for (std::size_t i = 0; i < std::min(files.size(), tracks.size()); ++i) {
    const double track = FramesToMilliseconds(tracks[i]);
    const auto deviation = [&](std::size_t j) { return RoundToInteger(std::abs(files[j] - track)); };
    std::size_t best = i;
    for (std::size_t j = i + 1; j < files.size(); ++j) {
      if (deviation(j) < deviation(best)) best = j;
    }
    std::swap(files[i], files[best]);
    std::swap(order[i], order[best]);
    placed(i + 1);
  }
  return order;
}

std::vector<int> SortAsAWhole(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks) {
  const std::vector<std::size_t> byFile = Ascending(files), byTrack = Ascending(tracks);
  std::vector<int> order(files.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[byTrack.at(i)] = static_cast<int>(byFile[i]);
  return order;
}

bool AllFit(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks,
            const std::vector<int>& order) {
  const std::vector<double> deviations = DeviationsIn(order, files, tracks);
  return std::all_of(deviations.begin(), deviations.end(), [](double off) { return off <= kCloseMilliseconds; });
}

double Misfit(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks,
              const std::vector<int>& order) {
  double sum = 0;
  for (const double off : DeviationsIn(order, files, tracks)) {
    const double seconds = std::min(off, kFarMilliseconds) / 1000;
    sum += seconds * seconds;
  }
  return sum;
}

}  // namespace tagrix
