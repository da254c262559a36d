// An album being named and tagged: its files, the tracks of its disc, and what both were called before.
#ifndef TAGRIX_SESSION_ALBUM_SESSION_H
#define TAGRIX_SESSION_ALBUM_SESSION_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "match/comparison.h"
#include "platform/files.h"
#include "sources/disc_source.h"
#include "storage/renaming.h"

namespace tagrix {

struct AlbumFile {
  std::wstring name;              // with its ending, without folder
  std::int32_t milliseconds = 0;  // playing time; 0 unknown
  bool fake = false;              // stands for a track without a file
  // The same time, but it goes with the file wherever that is moved. None: not looked at yet.
  std::optional<std::int32_t> length = {};

  static AlbumFile Fake() { return {L"**FAKE TRACK**", 0, true}; }
};

// The file at position i becomes track i + 1 of the disc.
struct AlbumSession {
  std::wstring folder;           // without a trailing "\"; empty: none is open
  std::wstring format = L"MP3";  // the file type chosen with the folder
  std::vector<AlbumFile> files;

  std::wstring words;         // of the last search
  std::wstring source;        // that it asked, by name
  std::vector<DiscHit> hits;  // that it found
  Disc disc;                  // the record of one of them, as far as it was read

  RenameJournal journal;  // names before the last Apply
};

inline int FileCount(const AlbumSession& session) { return static_cast<int>(session.files.size()); }
inline int TrackCount(const AlbumSession& session) { return static_cast<int>(session.disc.tracks.size()); }

// The path of a name in the album's folder.
std::wstring AlbumPath(const AlbumSession& session, const std::wstring& name);

// The folder's files of a format by character code, capitals first. Tags that a crashed run has left half-written are
// put back before. Throws Failure.
std::vector<AlbumFile> ReadAlbumFolder(Files& files, const std::wstring& folder, const std::wstring& format);

// Moves a file by exchanging names with one neighbour after the other. The lengths go along; the times stay where they
// are, and have to be measured again before they are compared; so do the former names.
void MoveFile(AlbumSession& session, int from, int to);
void AddFakeFiles(AlbumSession& session, int count);
// Whether every track has a file of its own, so that files can be sorted.
bool CanBeSorted(const AlbumSession& session);
// Brings the files into another order: the one at place i stood at `order[i]`. Former names go with their files; the
// times are unknown afterwards.
void ReorderFiles(AlbumSession& session, const std::vector<int>& order);

// How the file and the track at a position compare; as many positions as the longer list has, each as `at` sees it.
Place PlaceAt(const AlbumSession& session, int i);
std::vector<Place> PlacesOf(const AlbumSession& session, Place (*at)(const AlbumSession&, int) = PlaceAt);

// The track's line as lists show it: "[01] Title", and "[01]Title" when it was edited.
std::wstring TrackLine(const AlbumSession& session, int i);

}  // namespace tagrix

#endif
