#include "win32/windows/popup_menu.h"

namespace tagrix {

void OpenPopupMenu(HWND owner, POINT at, const std::vector<MenuEntry>& entries) {
  const HMENU menu = CreatePopupMenu();
  for (UINT_PTR id = 1; const MenuEntry& entry : entries) {
    AppendMenuW(menu, MF_STRING | (entry.enabled ? MF_ENABLED : MF_GRAYED), id++, entry.text.c_str());
  }
  const int chosen =
      TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x, at.y, 0, owner, nullptr);
  DestroyMenu(menu);
  if (chosen > 0) entries[static_cast<std::size_t>(chosen) - 1].chosen();
}

}  // namespace tagrix
