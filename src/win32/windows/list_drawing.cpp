#include "win32/windows/list_drawing.h"

#include <algorithm>

#include "win32/windows/control_drawing.h"

namespace tagrix {

// The system's have no colours that can be set.
LRESULT DrawListTitle(const NMCUSTOMDRAW& draw, const std::vector<ListColumn>& columns, const Palette& colours,
                      const Fonts& fonts) {
  const UniqueBrush ground(CreateSolidBrush(colours.ground)), line(CreateSolidBrush(colours.line));
  RECT area = draw.rc;
  FillRect(draw.hdc, &area, ground.Get());
  if (draw.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.dwDrawStage != CDDS_ITEMPREPAINT || draw.dwItemSpec >= columns.size()) return CDRF_DODEFAULT;
  const RECT edge{area.right - 1, area.top, area.right, area.bottom};
  FillRect(draw.hdc, &edge, line.Get());
  const ListColumn& column = columns[draw.dwItemSpec];
  InflateRect(&area, -fonts.Pixels(6), 0);
  SetBkMode(draw.hdc, TRANSPARENT);
  SetTextColor(draw.hdc, colours.text);
  DrawTextW(draw.hdc, column.title.c_str(), static_cast<int>(column.title.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | DT_NOCLIP |
                (column.alignRight ? DT_RIGHT : DT_LEFT));
  return CDRF_SKIPDEFAULT;
}

void DrawListHint(HWND window, const ListBox& list, const Palette& colours, const Fonts& fonts) {
  if (list.Hint().empty()) return;
  RECT area, titles;
  GetClientRect(window, &area);
  const auto header = reinterpret_cast<HWND>(SendMessageW(window, LVM_GETHEADER, 0, 0));
  if (IsWindowVisible(header) && GetClientRect(header, &titles)) area.top += titles.bottom;
  const HDC dc = GetDC(window);
  DrawHint(dc, area, list.Hint(), fonts, colours);
  ReleaseDC(window, dc);
}

void FrameListRow(HWND list, HDC dc, int row, const Palette& colours, const Fonts& fonts) {
  RECT area{LVIR_BOUNDS, 0, 0, 0};
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const UniqueBrush accent(CreateSolidBrush(colours.accent));
  for (int i = std::max(1, fonts.Pixels(2)); i > 0; --i) {
    FrameRect(dc, &area, accent.Get());
    InflateRect(&area, -1, -1);
  }
}

}  // namespace tagrix
