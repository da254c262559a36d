// Which file is which track, by their lengths.
#ifndef TAGRIX_MATCH_SORT_FILES_H
#define TAGRIX_MATCH_SORT_FILES_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace tagrix {

// For each track in disc order the file closest to it among those left, the higher one of two that are equally close;
// taking a file moves the one at the track's place to where it was. Returns where each place's file stood before.
// `files` in milliseconds, `tracks` in CD frames; `placed` hears how many tracks are done.
std::vector<int> SortFiles(
    std::vector<std::int32_t> files, const std::vector<std::int32_t>& tracks,
    const std::function<void(std::size_t tracksDone)>& placed = [](std::size_t) {});

// Both sides sorted by length: of all orders the one with the least sum of squared deviations. As many files as tracks.
std::vector<int> SortAsAWhole(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks);

// Whether in this order no file is more than 2 seconds off its track.
bool AllFit(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks,
            const std::vector<int>& order);
// How badly files in this order fit: the sum of squared deviations in square seconds. One of more than 10 seconds
// counts as one of 10: where a file is none of the tracks, it doesn't matter how far off it is.
double Misfit(const std::vector<std::int32_t>& files, const std::vector<std::int32_t>& tracks,
              const std::vector<int>& order);

}  // namespace tagrix

#endif
