#include "session/album_lengths.h"

#include "session/measure_album.h"

namespace tagrix {
namespace {

// What can't be read is left without a length: Apply says why.
struct Numbers : MeasureWatcher {
  Numbers(const std::function<void(int, int)>& hears, int files) : told(hears), count(files) {}
  void Measured(std::size_t file, std::int32_t) override {
    if (told) told(static_cast<int>(file) + 1, count);
  }
  void NotRead(const Failure&) override {}
  const std::function<void(int, int)>& told;
  const int count;
};

}  // namespace

void MeasureUnknown(AlbumSession& session, Files& files, Progress& progress,
                    const std::function<void(int file, int count)>& told) {
  const auto known = [](const AlbumFile& file) { return file.fake || file.length; };
  if (std::all_of(session.files.begin(), session.files.end(), known)) return;
  Numbers numbers(told, FileCount(session));
  const AlbumTimes times = MeasureAlbum(session, files, progress, numbers);
  if (progress.Cancelled()) return;
  for (std::size_t i = 0; i < session.files.size(); ++i) {
    if (!session.files[i].fake) session.files[i].length = times.milliseconds[i];
  }
}

Place KnownPlaceAt(const AlbumSession& session, int i) {
  Place place = PlaceAt(session, i);
  if (place.hasFile) place.file = session.files[static_cast<std::size_t>(i)].length.value_or(0);
  return place;
}

std::vector<Place> KnownPlacesOf(const AlbumSession& session) { return PlacesOf(session, KnownPlaceAt); }

}  // namespace tagrix
