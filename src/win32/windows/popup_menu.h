// A menu that opens where the pointer is.
#ifndef TAGRIX_WIN32_WINDOWS_POPUP_MENU_H
#define TAGRIX_WIN32_WINDOWS_POPUP_MENU_H

#include <windows.h>

#include <vector>

#include "forms/lists.h"

namespace tagrix {

// Opens it at a point of the screen and carries out what the user chooses, if anything.
void OpenPopupMenu(HWND owner, POINT at, const std::vector<MenuEntry>& entries);

}  // namespace tagrix

#endif
