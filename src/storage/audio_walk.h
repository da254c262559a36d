// The walk that collects the audio files below a folder.
#ifndef TAGRIX_STORAGE_AUDIO_WALK_H
#define TAGRIX_STORAGE_AUDIO_WALK_H

#include <string>
#include <vector>

#include "base/progress.h"
#include "platform/files.h"

namespace tagrix {

struct AudioWalk {
  std::vector<std::wstring> found;    // full paths: breadth first, in the system's order
  std::vector<std::wstring> notRead;  // folders below that could not be read, so that what they hold is missing
};

// The audio files of a folder and, with `recurse`, of every folder below it. Links to folders are not followed. Stops
// when the operation is cancelled. Throws Failure when the folder itself can't be read.
AudioWalk AudioFilesBelow(Files& files, const std::wstring& folder, bool recurse, Progress& progress);

}  // namespace tagrix

#endif
