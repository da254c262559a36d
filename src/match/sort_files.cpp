#include "match/sort_files.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "base/text.h"
#include "base/times.h"

namespace tagrix {

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

}  // namespace tagrix
