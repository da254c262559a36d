// Applies an album: tags, names and the playlist; and gives the names back.
#ifndef TAGRIX_SESSION_APPLY_H
#define TAGRIX_SESSION_APPLY_H

#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "base/progress.h"
#include "core/settings.h"
#include "session/album_session.h"
#include "tags/id3tag.h"

namespace tagrix {

// What to do, and how.
struct ApplyOrder {
  bool rename = false, playlist = false, id3v1 = false, id3v2 = false;
  std::wstring renamePattern, playlistPattern;
  PlaylistMode playlistMode;
  std::wstring currentYear;               // for an album whose year is none
  std::wstring status;                    // shown before the name of each file
  std::optional<TagStyle> tagStyle = {};  // none: the watcher is asked
};

enum class Trouble {
  ReadOnly,        // neither tagged nor renamed
  TagsNotWritten,  // by a file that refuses them, or for the reason that `failure` tells
  NotReplaced,     // the tagged copy could not take the file's place
  NameTaken,       // another file is called so
  NotRenamed,
  KeptAside,       // tagged; `target` names fields of the old tag that are only kept as private data
  PlaylistInUtf8,  // `name`: an M3U can't hold the names in it
};

// Something that went wrong with one file; the others go on.
struct Incident {
  Trouble trouble{};
  std::wstring name;         // as it is
  std::wstring target = {};  // as it should be; NotReplaced and NotRenamed: the whole path; KeptAside: see there
  const Failure* failure = nullptr;  // for as long as it is told
};

// For how many files the classic way of writing tags would lose something, by what it is (tags/standard_tags.h).
struct TagStyleReasons {
  int dropsFrames = 0, oldTag = 0, longText = 0, foreignText = 0, overwritesEnd = 0;
  bool operator==(const TagStyleReasons&) const = default;
};

// Who watches a run. Decides what is shown.
class ApplyWatcher {
 public:
  virtual ~ApplyWatcher() = default;
  virtual void Tell(const Incident& incident) = 0;
  // File i bears another name now.
  virtual void NameChanged(int i) = 0;
  virtual bool MayReplacePlaylist(const std::wstring& path) = 0;
  // Asked once, before anything is written. None: the run ends.
  virtual std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons& reasons) = 0;
  // File i has had its turn: what was told since the last one is about it.
  virtual void FileDone(int /*i*/) {}
  virtual void PlaylistWritten(const std::wstring& /*path*/) {}
};

// A file without a track is passed over. Puts back what a run that crashed has left half-written, completes the disc's
// album and year, records the names, and then does as it is told, file by file: tags in the standard style for files on
// which that makes a difference, if it is chosen. False when the user cancelled; what was done stays done. Throws
// Failure when the playlist, or what is about to be written over, can't be written.
bool Apply(AlbumSession& session, const ApplyOrder& order, const TagPorts& ports, Progress& progress,
           ApplyWatcher& watcher);

// Gives the files renamed by the last Apply their former names back: the file at position i gets the one recorded
// there, whatever has been moved since. Tags and playlist stay as they are.
Undone UndoApply(AlbumSession& session, Files& files, Progress& progress, ApplyWatcher& watcher);

}  // namespace tagrix

#endif
