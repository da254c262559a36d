// The dialog that gives a listed file another name.
#ifndef TAGRIX_DIALOGS_RENAME_FILE_H
#define TAGRIX_DIALOGS_RENAME_FILE_H

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// Lets the user give the selected file of a list whose texts are full paths another name, on the disk and in the list.
void RenameSelected(Context& context, ListBox& list);

}  // namespace tagrix

#endif
