#include "session/measure_album.h"

#include <algorithm>

#include "audio/measure.h"
#include "match/sort_files.h"

namespace tagrix {
namespace {

using MeasureOne = FileTime(Files& files, const std::wstring& path, const std::function<bool()>& goOn);

std::vector<std::int32_t> TrackFrames(const AlbumSession& session) {
  std::vector<std::int32_t> frames;
  for (const DiscTrack& track : session.disc.tracks) frames.push_back(track.frames);
  return frames;
}

AlbumTimes MeasureEach(MeasureOne* measure, const AlbumSession& session, Files& files, Progress& progress,
                       MeasureWatcher& watcher) {
  AlbumTimes times;
  times.milliseconds.resize(session.files.size());
  const auto goOn = [&] {
    progress.LetEventsRun();
    return !progress.Cancelled();
  };
  for (std::size_t i = 0; i < session.files.size(); ++i) {
    progress.Percent(Percentage(static_cast<int>(i), FileCount(session)));
    FileTime time;
    try {
      if (!session.files[i].fake) time = measure(files, AlbumPath(session, session.files[i].name), goOn);
    } catch (const Failure& failure) {
      watcher.NotRead(failure);
    }
    times.milliseconds[i] = time.milliseconds;
    if (time.exact) ++times.exact;
    watcher.Measured(i, time.milliseconds);
    if (!goOn()) break;
  }
  return times;
}

}  // namespace

AlbumTimes MeasureAlbum(const AlbumSession& session, Files& files, Progress& progress, MeasureWatcher& watcher) {
  AlbumTimes times = MeasureEach(&MeasureFile, session, files, progress, watcher);
  const std::vector<std::int32_t> tracks = TrackFrames(session);
  if (progress.Cancelled() || AllFit(times.milliseconds, tracks, SortFiles(times.milliseconds, tracks))) return times;
  times = MeasureEach(&MeasureFileExactly, session, files, progress, watcher);
  times.allExact = true;
  return times;
}

std::vector<int> SortAlbum(const AlbumSession& session, const AlbumTimes& times, Progress& progress) {
  const std::vector<std::int32_t> tracks = TrackFrames(session);
  std::vector<int> order = SortFiles(times.milliseconds, tracks, [&](std::size_t done) {
    progress.Percent(Percentage(static_cast<int>(done), TrackCount(session)));
    progress.LetEventsRun();
  });
  if (!times.allExact) return order;
  std::vector<int> whole = SortAsAWhole(times.milliseconds, tracks);
  const auto misfit = [&](const std::vector<int>& found) { return Misfit(times.milliseconds, tracks, found); };
  return misfit(whole) < misfit(order) ? whole : order;
}

}  // namespace tagrix
