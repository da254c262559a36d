// What pages say and write with the language's texts: captions, the status line, common message boxes.
#ifndef TAGRIX_CORE_NOTICES_H
#define TAGRIX_CORE_NOTICES_H

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "core/context.h"

namespace tagrix {

// Sets the captions of controls to language messages.
void SetCaptions(Context& context, std::initializer_list<std::pair<Control&, int>> captions);

// Says that the operation was cancelled.
void ShowCancelMessage(Context& context);

// Says which folders could not be read, so that what they hold is missing; nothing when there are none.
void ShowFoldersNotRead(Context& context, const std::vector<std::wstring>& folders);

// Says that a file could not get this path.
void ShowRenameFailure(Context& context, const std::wstring& newPath);

// Renames in one system call, never over another file; a failure is shown to the user. True on success.
bool RenameFile(Context& context, const std::wstring& oldPath, const std::wstring& newPath);

}  // namespace tagrix

#endif
