#include "session/album_session.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/times.h"
#include "storage/small_files.h"
#include "tags/tag_journal.h"

namespace tagrix {

std::wstring AlbumPath(const AlbumSession& session, const std::wstring& name) {
  return WithBackslash(session.folder) + name;
}

std::vector<AlbumFile> ReadAlbumFolder(Files& files, const std::wstring& folder, const std::wstring& format) {
  try {
    RecoverTags(files, folder);
  } catch (const Failure&) {
    // The folder can be looked at all the same; Apply tries again and says why it can't.
  }
  std::vector<std::wstring> names = FilesOfFormat(files, folder, format);
  std::sort(names.begin(), names.end());
  std::vector<AlbumFile> album;
  album.reserve(names.size());
  for (std::wstring& name : names) album.push_back({std::move(name)});
  return album;
}

void MoveFile(AlbumSession& session, int from, int to) {
  const auto at = [&](int i) -> AlbumFile& { return session.files.at(static_cast<std::size_t>(i)); };
  for (const int step = from < to ? 1 : -1; from != to; from += step) {
    const int neighbour = from + step;
    std::swap(at(from).name, at(neighbour).name);
    std::swap(at(from).fake, at(neighbour).fake);
    std::swap(at(from).length, at(neighbour).length);
  }
}

void AddFakeFiles(AlbumSession& session, int count) {
  session.files.insert(session.files.end(), static_cast<std::size_t>(std::max(count, 0)), AlbumFile::Fake());
}

bool CanBeSorted(const AlbumSession& session) {
  return FileCount(session) == TrackCount(session) &&
         std::none_of(session.files.begin(), session.files.end(), [](const AlbumFile& file) { return file.fake; });
}

void ReorderFiles(AlbumSession& session, const std::vector<int>& order) {
  std::vector<AlbumFile> files;
  files.reserve(order.size());
  for (const int from : order) {
    AlbumFile& file = files.emplace_back(session.files.at(static_cast<std::size_t>(from)));
    file.milliseconds = 0;
  }
  session.files = std::move(files);
  session.journal.Reorder(order);
}

Place PlaceAt(const AlbumSession& session, int i) {
  const auto at = static_cast<std::size_t>(i);
  Place place;
  if (at < session.files.size() && !session.files[at].fake) {
    place.hasFile = true;
    place.file = session.files[at].milliseconds;
  }
  if (at < session.disc.tracks.size()) {
    place.hasTrack = true;
    place.track = FramesToMilliseconds(session.disc.tracks[at].frames);
  }
  return place;
}

std::vector<Place> PlacesOf(const AlbumSession& session, Place (*at)(const AlbumSession&, int)) {
  const int count = std::max(FileCount(session), TrackCount(session));
  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) places.push_back(at(session, i));
  return places;
}

std::wstring TrackLine(const AlbumSession& session, int i) {
  const DiscTrack& track = session.disc.tracks.at(static_cast<std::size_t>(i));
  return L"[" + TwoDigits(i + 1) + (track.edited ? L"]" : L"] ") + track.title;
}

}  // namespace tagrix
