// The walk that collects the audio files below a folder.
#ifndef TAGRIX_DIALOGS_AUDIO_WALK_H
#define TAGRIX_DIALOGS_AUDIO_WALK_H

#include <string>
#include <vector>

#include "core/context.h"

namespace tagrix {

// The full paths of the audio files of a folder and, with `recurse`, of every folder below it: breadth first, in the
// system's order. Links to folders are not followed and folders below that can't be read are passed over. Lets events
// run, shows the current folder in the status line and stops when the operation is cancelled. Throws Failure when the
// folder itself can't be read.
std::vector<std::wstring> AudioFilesBelow(Context& context, const std::wstring& folder, bool recurse);

}  // namespace tagrix

#endif
