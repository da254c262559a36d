// Measures the files of an album, and finds out by their times which is which track.
#ifndef TAGRIX_SESSION_MEASURE_ALBUM_H
#define TAGRIX_SESSION_MEASURE_ALBUM_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/failure.h"
#include "base/progress.h"
#include "platform/files.h"
#include "session/album_session.h"

namespace tagrix {

// The times of the session's files, in their order. A fake one has none.
struct AlbumTimes {
  std::vector<std::int32_t> milliseconds;  // 0 unknown
  int exact = 0;                           // how many were measured exactly, since the quick way had no answer
  bool allExact = false;                   // since the quick times don't fit the tracks in any order
};

// Who watches. A file may be measured twice.
class MeasureWatcher {
 public:
  virtual ~MeasureWatcher() = default;
  virtual void Measured(std::size_t file, std::int32_t milliseconds) = 0;
  // A file can't be read: it has no time, unless this throws.
  virtual void NotRead(const Failure& failure) = 0;
};

// Measures all files the quick way; when the order that SortFiles finds for them has a file more than 2 seconds off its
// track, measures all of them exactly. When the user cancels, the rest has no time.
AlbumTimes MeasureAlbum(const AlbumSession& session, Files& files, Progress& progress, MeasureWatcher& watcher);

// The order for ReorderFiles: as SortFiles finds it; for exact times, as it or SortAsAWhole finds it, whichever
// deviates less. Needs a session whose files can be sorted; tells `progress` how far it is.
std::vector<int> SortAlbum(const AlbumSession& session, const AlbumTimes& times, Progress& progress);

}  // namespace tagrix

#endif
