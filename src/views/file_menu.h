// The context menu of lists of files.
#ifndef TAGRIX_VIEWS_FILE_MENU_H
#define TAGRIX_VIEWS_FILE_MENU_H

#include <functional>
#include <string>
#include <vector>

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// What can be done with the selected files, by their full paths: one is opened or shown in its folder, all their names
// are copied, one a line. None when nothing is selected.
std::vector<MenuEntry> FileMenu(Context& context, const std::vector<std::wstring>& paths);

// The same for the selected entries of a list whose texts are full paths, and "Rename", as by its key.
std::vector<MenuEntry> FileMenu(Context& context, ListBox& list);

}  // namespace tagrix

#endif
