#include "storage/audio_walk.h"

#include <deque>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"

namespace tagrix {

AudioWalk AudioFilesBelow(Files& files, const std::wstring& folder, bool recurse, Progress& progress) {
  AudioWalk walk;
  std::deque<std::wstring> lst{WithoutBackslash(folder)};  // folders still to be walked
  for (bool first = true; !lst.empty() && !progress.Cancelled(); first = false) {
    const std::wstring current = WithBackslash(std::move(lst.front()));
    lst.pop_front();
    progress.Status(current);
    progress.LetEventsRun();
    try {
      files.List(current, L"*", [&](const FileInfo& entry) {
        if (!entry.folder) {
          if (IsAudioName(entry.name)) walk.found.push_back(current + entry.name);
        } else if (recurse && !entry.link) {
          lst.push_back(current + entry.name);
        }
        progress.Pass(current);
        return !progress.Cancelled();
      });
    } catch (const Failure&) {
      if (first) throw;
      walk.notRead.push_back(WithoutBackslash(current));
    }
  }
  return walk;
}

}  // namespace tagrix
