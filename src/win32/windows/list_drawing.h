// What of a list view is drawn by us: the titles, the hint of an empty list, the frame of a dragged row.
#ifndef TAGRIX_WIN32_WINDOWS_LIST_DRAWING_H
#define TAGRIX_WIN32_WINDOWS_LIST_DRAWING_H

#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include <vector>

#include "forms/lists.h"
#include "win32/windows/fonts.h"
#include "win32/windows/palette.h"

namespace tagrix {

// Draws a title, at the stage that `draw` tells; returns what the system asks for then.
LRESULT DrawListTitle(const NMCUSTOMDRAW& draw, const std::vector<ListColumn>& columns, const Palette& colours,
                      const Fonts& fonts);
// Draws the hint of an empty list, below its titles.
void DrawListHint(HWND window, const ListBox& list, const Palette& colours, const Fonts& fonts);
// Draws a frame around a row.
void FrameListRow(HWND list, HDC dc, int row, const Palette& colours, const Fonts& fonts);

}  // namespace tagrix

#endif
