#include "win32/windows/list_drawing.h"

#include <algorithm>

#include "win32/windows/gdi.h"

namespace tagrix {

// The titles have no colours that can be set.
LRESULT DrawListTitle(const NMCUSTOMDRAW& draw, const std::vector<ListColumn>& columns, const Palette& colours,
                      int dpi) {
  if (!colours.dark) return CDRF_DODEFAULT;
  const UniqueBrush ground(CreateSolidBrush(colours.ground)), line(CreateSolidBrush(colours.line));
  RECT area = draw.rc;
  FillRect(draw.hdc, &area, ground.Get());
  if (draw.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.dwDrawStage != CDDS_ITEMPREPAINT || draw.dwItemSpec >= columns.size()) return CDRF_DODEFAULT;
  const RECT edge{area.right - 1, area.top, area.right, area.bottom};
  FillRect(draw.hdc, &edge, line.Get());
  const ListColumn& column = columns[draw.dwItemSpec];
  InflateRect(&area, -MulDiv(6, dpi, 96), 0);
  SetBkMode(draw.hdc, TRANSPARENT);
  SetTextColor(draw.hdc, colours.text);
  DrawTextW(draw.hdc, column.title.c_str(), static_cast<int>(column.title.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | (column.alignRight ? DT_RIGHT : DT_LEFT));
  return CDRF_SKIPDEFAULT;
}

void DrawListHint(HWND list, const std::wstring& hint, bool hasTitles, const Palette& colours, int dpi) {
  RECT area;
  GetClientRect(list, &area);
  if (hasTitles) {
    RECT titles;
    GetClientRect(reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0)), &titles);
    area.top += titles.bottom;
  }
  InflateRect(&area, -MulDiv(12, dpi, 96), -MulDiv(12, dpi, 96));
  const HDC dc = GetDC(list);
  {
    const Selected font(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colours.dimText);
    DrawTextW(dc, hint.c_str(), static_cast<int>(hint.size()), &area, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX);
  }
  ReleaseDC(list, dc);
}

void FrameListRow(HWND list, HDC dc, int row, const Palette& colours, int dpi) {
  RECT area{LVIR_BOUNDS, 0, 0, 0};
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  const UniqueBrush accent(CreateSolidBrush(colours.accent));
  for (int i = std::max(1, MulDiv(2, dpi, 96)); i > 0; --i) {
    FrameRect(dc, &area, accent.Get());
    InflateRect(&area, -1, -1);
  }
}

}  // namespace tagrix
