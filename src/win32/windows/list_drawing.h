// What of a list view is drawn by us: the titles in the dark, the hint of an empty list, the frame of a dragged row.
#ifndef TAGRIX_WIN32_WINDOWS_LIST_DRAWING_H
#define TAGRIX_WIN32_WINDOWS_LIST_DRAWING_H

#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include <string>
#include <vector>

#include "forms/lists.h"
#include "win32/windows/palette.h"

namespace tagrix {

// Draws a title, at the stage that `draw` tells; returns what the system asks for then.
LRESULT DrawListTitle(const NMCUSTOMDRAW& draw, const std::vector<ListColumn>& columns, const Palette& colours,
                      int dpi);
// Draws the hint in the middle of the list, below the titles when it has some.
void DrawListHint(HWND list, const std::wstring& hint, bool hasTitles, const Palette& colours, int dpi);
// Draws a frame around a row.
void FrameListRow(HWND list, HDC dc, int row, const Palette& colours, int dpi);

}  // namespace tagrix

#endif
