#include "storage/audio_walk.h"

#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "storage/folder_walk.h"

namespace tagrix {

AudioWalk AudioFilesBelow(Files& files, const std::wstring& folder, bool recurse, Progress& progress) {
  AudioWalk walk;
  FolderWalk folders(WithoutBackslash(folder));
  bool first = true;
  for (auto next = folders.Next(); next && !progress.Cancelled(); next = folders.Next()) {
    const std::wstring current = WithBackslash(*std::move(next));
    progress.Status(current);
    progress.Percent(folders.Percent());
    progress.LetEventsRun();
    try {
      files.List(current, L"*", [&](const FileInfo& entry) {
        if (!entry.folder) {
          if (IsAudioName(entry.name)) walk.found.push_back(current + entry.name);
        } else if (recurse && !entry.link) {
          folders.Add(current + entry.name);
        }
        progress.Pass(current);
        return !progress.Cancelled();
      });
    } catch (const Failure&) {
      if (first) throw;
      walk.notRead.push_back(WithoutBackslash(current));
    }
    first = false;
  }
  return walk;
}

}  // namespace tagrix
