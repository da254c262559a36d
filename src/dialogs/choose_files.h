// The "add files" operation of the pages that collect files: the system's open-file dialog and the setting "LastDir".
#ifndef TAGRIX_DIALOGS_CHOOSE_FILES_H
#define TAGRIX_DIALOGS_CHOOSE_FILES_H

#include <string>
#include <vector>

#include "core/context.h"

namespace tagrix {

// The media files that the playlist builder and the burn page offer.
inline constexpr const wchar_t* kMediaPatterns = L"*.mp3; *.ogg; *.vqf; *.ape; *.mpc; *.wma; *.wav";
// The filter for them; `label` stands before the patterns ("Media files").
FileFilter MediaFilter(const std::wstring& label);

// Lets the user choose files, starting in "LastDir" (the Music folder when it names no folder), and returns their full
// paths in the dialog's order; empty when the user cancels. Those that have vanished meanwhile are left out. "LastDir"
// becomes their folder: with a trailing "\" when one file is chosen, without when several are.
std::vector<std::wstring> ChooseFiles(Context& context, std::vector<FileFilter> filters);

}  // namespace tagrix

#endif
