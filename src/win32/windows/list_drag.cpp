#include "win32/windows/list_drag.h"

#include <algorithm>
#include <string>

namespace tagrix {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kStep = 60;  // milliseconds between rows while the pointer is beyond the edge

}  // namespace

LVHITTESTINFO HitAt(HWND window, POINT point) {
  LVHITTESTINFO hit{};
  hit.pt = point;
  hit.iItem = static_cast<int>(SendMessageW(window, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  return hit;
}

void ListDrag::Begin(int row) {
  if (!list_.dragged || row < 0 || row >= list_.Count()) return;
  row_ = row;
  InvalidateRect(window_, nullptr, FALSE);
  SetCapture(window_);
  SetTimer(window_, kTimer, kStep, nullptr);
}

bool ListDrag::Cancel() { return Runs() && ReleaseCapture() != FALSE; }

bool ListDrag::Take(UINT message, WPARAM wParam) {
  const bool moves = (message == WM_MOUSEMOVE && Runs()) || (message == WM_TIMER && wParam == kTimer);
  if (moves) GoOn();
  if (message == WM_LBUTTONUP) Cancel();
  if (message == WM_CAPTURECHANGED) End();
  return moves;
}

void ListDrag::GoOn() {
  const int count = list_.Count();
  if (row_ < 0 || row_ >= count) return;
  POINT point;
  GetCursorPos(&point);
  ScreenToClient(window_, &point);
  RECT area;
  GetClientRect(window_, &area);
  SetCursor(LoadCursorW(nullptr, IDC_SIZENS));

  // Beyond the edge it goes on row by row.
  const int top = static_cast<int>(SendMessageW(window_, LVM_GETTOPINDEX, 0, 0));
  const int page = static_cast<int>(SendMessageW(window_, LVM_GETCOUNTPERPAGE, 0, 0));
  int to = HitAt(window_, {std::clamp<LONG>(point.x, 1, area.right - 1), point.y}).iItem;
  if (point.y < area.top) to = top - 1;
  if (point.y >= area.bottom) to = top + page;
  to = to < 0 && point.y >= area.top ? count - 1 : std::clamp(to, 0, count - 1);
  if (to == row_) return;
  const std::wstring text = list_.ItemText(row_);
  list_.Drag(row_, to);
  // It has not moved when the page refuses.
  if (to < list_.Count() && list_.ItemText(to) == text) row_ = to;
}

void ListDrag::End() {
  row_ = -1;
  InvalidateRect(window_, nullptr, FALSE);
  KillTimer(window_, kTimer);
}

}  // namespace tagrix
