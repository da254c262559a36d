#include "win32/windows/list_window.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/letter_case.h"
#include "base/text.h"
#include "win32/windows/list_drawing.h"
#include "win32/windows/popup_menu.h"

namespace tagrix {
namespace {

constexpr UINT kTakeSelection = WM_APP + 1;

bool HasTitles(const ListBox& list) {
  return std::any_of(list.Columns().begin(), list.Columns().end(),
                     [](const ListColumn& c) { return !c.title.empty(); });
}

DWORD Style(const ListBox& list) {
  return WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER |
         (list.MultiSelect() ? 0U : LVS_SINGLESEL) | (HasTitles(list) ? 0U : LVS_NOCOLUMNHEADER);
}

bool KeyIsDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

ListWindow::ListWindow(const Site& site, ListBox& list)
    : Binding(site, list, {WC_LISTVIEWW, Style(list)}), list_(list), drag_(Window(), list) {
  Ask(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
  Subclass();
}

void ListWindow::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  fonts_ = &fonts;
  FitColumns();
}

void ListWindow::SetPalette(const Palette& palette) {
  Binding::SetPalette(palette);
  Ask(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(palette.field));
  Ask(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(palette.field));
  Ask(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(palette.text));
}

void ListWindow::Update(Changes changes) {
  showing_ = true;
  if (changes.Has(Change::Look)) MakeColumns();
  if (changes.Has(Change::Items)) {
    if (std::exchange(shownCount_, list_.Count()) != list_.Count()) {
      Ask(LVM_SETITEMCOUNT, static_cast<WPARAM>(list_.Count()), LVSICF_NOSCROLL);
    }
    InvalidateRect(Window(), nullptr, FALSE);
  }
  ShowSelection();
  showing_ = false;
}

void ListWindow::MakeColumns() {
  while (Ask(LVM_DELETECOLUMN, 0) != FALSE) {
  }
  const std::vector<int> widths = ColumnWidths();
  for (std::size_t i = 0; i < widths.size(); ++i) {
    ListColumn column = list_.Columns().empty() ? ListColumn() : list_.Columns()[i];
    LVCOLUMNW made{};
    made.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM | LVCF_WIDTH;
    made.fmt = column.alignRight ? LVCFMT_RIGHT : LVCFMT_LEFT;
    made.pszText = column.title.data();
    made.cx = widths[i];
    made.iSubItem = static_cast<int>(i);
    Ask(LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&made));
  }
  const LONG_PTR style = GetWindowLongPtrW(Window(), GWL_STYLE);
  const LONG_PTR wanted = HasTitles(list_) ? style & ~LVS_NOCOLUMNHEADER : style | LVS_NOCOLUMNHEADER;
  if (wanted != style) SetWindowLongPtrW(Window(), GWL_STYLE, wanted);
}

// Those without a width of their own share what is left.
std::vector<int> ListWindow::ColumnWidths() const {
  RECT area;
  GetClientRect(Window(), &area);
  std::vector<int> widths;
  int left = area.right, sharing = 0;
  for (const ListColumn& column : list_.Columns()) {
    widths.push_back(fonts_->Pixels(column.width));
    left -= widths.back();
    sharing += column.width == 0;
  }
  if (widths.empty()) return {area.right};
  for (int& width : widths) {
    if (width > 0) continue;
    width = std::max(0, left) / sharing--;
    left -= width;
  }
  return widths;
}

void ListWindow::FitColumns() {
  if (fonts_ == nullptr) return;  // being made
  for (WPARAM i = 0; const int width : ColumnWidths()) {
    if (Ask(LVM_GETCOLUMNWIDTH, i) != width) Ask(LVM_SETCOLUMNWIDTH, i, width);
    ++i;
  }
}

void ListWindow::SetRowState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  Ask(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

std::vector<bool> ListWindow::WindowSelection() const {
  std::vector<bool> selected(static_cast<std::size_t>(list_.Count()));
  int row = -1;
  while ((row = static_cast<int>(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0) {
    if (IsRow(row)) selected[static_cast<std::size_t>(row)] = true;
  }
  return selected;
}

void ListWindow::ShowSelection() {
  const int count = list_.Count(), chosen = list_.SelectedCount();
  if (count == 0) {
    shownFocus_ = -1;
    return;
  }
  if (chosen == 0 || (chosen == count && list_.MultiSelect())) {
    SetRowState(-1, chosen == 0 ? 0 : LVIS_SELECTED, LVIS_SELECTED);
  } else {
    const std::vector<bool> shown = WindowSelection();
    for (int row = 0; row < count; ++row) {
      const bool selected = list_.Selected(row);
      if (shown[static_cast<std::size_t>(row)] != selected)
        SetRowState(row, selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
    }
  }
  if (list_.Focus() == shownFocus_) return;
  shownFocus_ = list_.Focus();
  if (!IsRow(shownFocus_)) return;
  SetRowState(shownFocus_, LVIS_FOCUSED, LVIS_FOCUSED);
  Ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(shownFocus_), FALSE);
}

void ListWindow::TakeSelection() {
  if (!std::exchange(selectionTouched_, false)) return;
  const std::vector<bool> chosen = WindowSelection();
  const auto first = std::find(chosen.begin(), chosen.end(), true);
  const bool several = std::count(chosen.begin(), chosen.end(), true) > 1;
  if (first == chosen.end() && !list_.MultiSelect()) {
    Update({});  // a click beside the rows leaves the choice as it was
  } else if (first != chosen.end() && !several) {
    const int row = static_cast<int>(first - chosen.begin());
    shownFocus_ = row;
    if (list_.SelectedCount() != 1 || !list_.Selected(row)) list_.ClickItem(row);
  } else {
    for (int row = 0; row < list_.Count(); ++row) list_.Select(row, chosen[static_cast<std::size_t>(row)]);
    if (list_.selectionChanged) list_.selectionChanged();
  }
}

std::optional<LRESULT> ListWindow::Notify(NMHDR& note) {
  switch (note.code) {
    case LVN_GETDISPINFOW:
      ShowCell(reinterpret_cast<NMLVDISPINFOW&>(note).item);
      return 0;
    case LVN_ODFINDITEMW:
      return FindText(reinterpret_cast<NMLVFINDITEMW&>(note));
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      if (!showing_ && !std::exchange(selectionTouched_, true)) PostMessageW(Window(), kTakeSelection, 0, 0);
      return 0;
    case NM_CUSTOMDRAW:
      return Colour(reinterpret_cast<NMLVCUSTOMDRAW&>(note));
    case NM_DBLCLK: {
      const int row = reinterpret_cast<NMITEMACTIVATE&>(note).iItem;
      TakeSelection();
      if (IsRow(row)) list_.DoubleClickItem(row);
      return 0;
    }
    case LVN_KEYDOWN:
      return KeyDown(reinterpret_cast<NMLVKEYDOWN&>(note).wVKey) ? 1 : 0;
    case LVN_BEGINDRAG:
      TakeSelection();
      drag_.Begin(reinterpret_cast<NMLISTVIEW&>(note).iItem);
      return 0;
    default:
      return std::nullopt;
  }
}

void ListWindow::ShowCell(LVITEMW& item) {
  if ((item.mask & LVIF_TEXT) == 0) return;
  cell_ = IsRow(item.iItem) ? CellText(item.iItem, item.iSubItem) : std::wstring();
  item.pszText = cell_.data();
}

std::wstring ListWindow::CellText(int row, int column) const {
  return list_.Columns().empty() || !list_.cell ? list_.ItemText(row) : list_.cell(row, column);
}

// A chosen row is seen as one wherever the keyboard is.
LRESULT ListWindow::Colour(NMLVCUSTOMDRAW& draw) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const int row = static_cast<int>(draw.nmcd.dwItemSpec);
  if (draw.nmcd.dwDrawStage == CDDS_ITEMPOSTPAINT) FrameListRow(Window(), draw.nmcd.hdc, row, Colours(), *fonts_);
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || !IsRow(row)) return CDRF_DODEFAULT;
  const LRESULT after = drag_.Drags(row) ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
  const Palette& colours = Colours();
  const RowMark mark = list_.mark ? list_.mark(row) : RowMark::None;
  draw.clrTextBk = colours.field;
  draw.clrText = mark == RowMark::Dim        ? colours.dimText
                 : mark == RowMark::Doubtful ? colours.warning
                 : mark == RowMark::Wrong    ? colours.error
                                             : colours.text;
  if (list_.Selected(row)) {
    const bool focused = GetFocus() == Window();
    draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    draw.clrTextBk = focused ? colours.selected : colours.resting;
    // The colour of a mark would not stand out from that of the choice.
    draw.clrText = focused ? colours.onSelected : colours.onResting;
  }
  if (mark != RowMark::Changed && mark != RowMark::Wrong) return after;
  SelectObject(draw.nmcd.hdc, fonts_->Bold());
  return CDRF_NEWFONT | after;
}

// By the keyboard it opens below the row that has it.
void ListWindow::ShowMenu(POINT at) {
  TakeSelection();
  if (!list_.menu || !list_.Enabled()) return;
  const std::vector<MenuEntry> entries = list_.menu();
  if (entries.empty()) return;
  if (at.x == -1 && at.y == -1) {
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    Ask(LVM_GETITEMRECT, static_cast<WPARAM>(std::max(0, list_.Focus())), reinterpret_cast<LPARAM>(&row));
    at = {fonts_->Pixels(16), list_.Count() > 0 ? row.bottom : 0};
    ClientToScreen(Window(), &at);
  }
  OpenPopupMenu(Window(), at, entries);
}

int ListWindow::FindText(const NMLVFINDITEMW& wanted) const {
  if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr) return -1;
  const std::wstring_view start = wanted.lvfi.psz;
  for (int step = 0; step < list_.Count(); ++step) {
    const int row = (std::max(0, wanted.iStart) + step) % list_.Count();
    if (StartsWithIgnoringCase(list_.ItemText(row), start)) return row;
  }
  return -1;
}

bool ListWindow::KeyDown(UINT key) {
  TakeSelection();
  if (key == VK_DELETE) list_.PressKey(ListKey::Delete);
  if (key == VK_F2) list_.PressKey(ListKey::Rename);
  if (key != 'A' || !list_.MultiSelect() || !KeyIsDown(VK_CONTROL)) return false;
  SetRowState(-1, LVIS_SELECTED, LVIS_SELECTED);
  return true;
}

bool ListWindow::TakeKey(WPARAM key) {
  if (key == VK_ESCAPE && drag_.Cancel()) return true;
  if (key != VK_RETURN || !list_.doubleClicked) return false;
  TakeSelection();
  const int row = static_cast<int>(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  if (IsRow(row)) list_.DoubleClickItem(row);
  return true;
}

std::wstring ListWindow::TooltipHere() {
  POINT point;
  GetCursorPos(&point);
  ScreenToClient(Window(), &point);
  const LVHITTESTINFO hit = HitAt(Window(), point);
  if (!IsRow(hit.iItem)) return {};
  const std::wstring text = CellText(hit.iItem, hit.iSubItem);
  const LRESULT width = Ask(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str())) + fonts_->Pixels(12);
  return width > Ask(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(hit.iSubItem)) ? text : std::wstring();
}

// Another cell has another tooltip.
void ListWindow::Hover(POINT point) {
  const LVHITTESTINFO hit = HitAt(Window(), point);
  const std::pair cell(hit.iItem, hit.iSubItem);
  if (std::exchange(hovered_, cell) == cell) return;
  SendMessageW(GetParent(Window()), kHideTooltip, 0, 0);
}

LRESULT ListWindow::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (drag_.Take(message, wParam)) return 0;
  switch (message) {
    case kTakeSelection:
      TakeSelection();
      return 0;
    case WM_SIZE: {
      const LRESULT result = Binding::Message(message, wParam, lParam);
      FitColumns();
      return result;
    }
    case WM_PAINT: {
      const LRESULT result = Binding::Message(message, wParam, lParam);
      if (list_.Count() == 0) DrawListHint(Window(), list_, Colours(), *fonts_);
      return result;
    }
    case WM_NOTIFY: {
      const auto& note = *reinterpret_cast<const NMHDR*>(lParam);
      if (note.code != NM_CUSTOMDRAW) break;
      const LRESULT drawn =
          DrawListTitle(reinterpret_cast<const NMCUSTOMDRAW&>(note), list_.Columns(), Colours(), *fonts_);
      if (drawn != CDRF_DODEFAULT) return drawn;
      break;
    }
    case WM_ENABLE: {
      // The system gives it others of its own.
      const LRESULT result = Binding::Message(message, wParam, lParam);
      if (Colours().dark) SetPalette(Colours());
      InvalidateRect(Window(), nullptr, TRUE);
      return result;
    }
    case WM_CONTEXTMENU:
      ShowMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Window(), nullptr, FALSE);
      break;
    case WM_SYSKEYDOWN:
      if (wParam != VK_UP && wParam != VK_DOWN) break;
      TakeSelection();
      list_.PressKey(wParam == VK_UP ? ListKey::MoveUp : ListKey::MoveDown);
      return 0;
    case WM_MOUSEMOVE:
      Hover({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      break;
    default:
      break;
  }
  return Binding::Message(message, wParam, lParam);
}

}  // namespace tagrix
