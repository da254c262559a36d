#include "win32/windows/text_windows.h"

#include <algorithm>

#include "win32/windows/gdi.h"

namespace tagrix {
EditField::EditField(const Site& site, TextBox& box)
    : Binding(site, box, {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL}), box_(box) {
  SendMessageW(Window(), EM_SETLIMITTEXT, 0, 0);  // none
}

void EditField::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  SendMessageW(Window(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);  // the form draws a box around it
}

void EditField::Update(Changes changes) {
  if (changes.Has(Change::Look)) SendMessageW(Window(), EM_SETREADONLY, box_.ReadOnly(), 0);
  if (changes.Has(Change::Text)) ShowContent();
}

void EditField::ShowContent() {
  if (WindowText() == box_.Text()) return;
  // What stands behind the caret stays behind it when what was typed comes back changed.
  DWORD caret = 0;
  SendMessageW(Window(), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  const LONG_PTR behind = GetWindowTextLengthW(Window()) - static_cast<LONG_PTR>(caret);
  ShowText(box_.Text());
  if (GetFocus() != Window()) return;
  const LONG_PTR place = std::max<LONG_PTR>(0, static_cast<LONG_PTR>(box_.Text().size()) - behind);
  SendMessageW(Window(), EM_SETSEL, static_cast<WPARAM>(place), place);
}

void EditField::Command(int code) {
  if (code != EN_CHANGE) return;
  std::wstring text = WindowText();
  if (text == box_.Text()) return;
  box_.Type(std::move(text));
  ShowContent();  // at once, before the next key
}

// What is cut off.
std::wstring EditField::TooltipHere() {
  const std::wstring text = WindowText();
  RECT area;
  SendMessageW(Window(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
  const HDC dc = GetDC(Window());
  SIZE extent{};
  {
    const Selected font(dc, reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
  }
  ReleaseDC(Window(), dc);
  return extent.cx > area.right - area.left ? text : std::wstring();
}

DropDown::DropDown(const Site& site, ComboBox& combo)
    : Binding(site, combo,
              {WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_AUTOHSCROLL |
                                 static_cast<DWORD>(combo.Editable() ? CBS_DROPDOWN : CBS_DROPDOWNLIST)}),
      combo_(combo) {}

void DropDown::Update(Changes changes) {
  if (changes.Has(Change::Items)) Fill();
  if (Ask(CB_GETCURSEL) != combo_.SelectedIndex()) Ask(CB_SETCURSEL, static_cast<WPARAM>(combo_.SelectedIndex()));
  if (combo_.Editable()) ShowText(combo_.Text());
}

void DropDown::Fill() {
  SendMessageW(Window(), WM_SETREDRAW, FALSE, 0);
  Ask(CB_RESETCONTENT);
  for (int i = 0; i < combo_.Count(); ++i) {
    SendMessageW(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(combo_.ItemText(i).c_str()));
  }
  SendMessageW(Window(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Window(), nullptr, TRUE);
}

void DropDown::Command(int code) {
  const int chosen = static_cast<int>(Ask(CB_GETCURSEL));
  switch (code) {
    case CBN_CLOSEUP:  // Esc has put back what had been chosen before
      if (combo_.Editable() || chosen == combo_.SelectedIndex()) return;
      [[fallthrough]];
    case CBN_SELCHANGE:
      if (chosen >= 0 && chosen < combo_.Count()) combo_.Choose(chosen);
      return;
    case CBN_EDITCHANGE: {
      std::wstring text = WindowText();
      if (text != combo_.Text()) combo_.Type(std::move(text));
      return;
    }
    default:
      return;
  }
}

LRESULT DropDown::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Binding::Message(message, wParam, lParam);
  if (message == WM_PAINT && Colours().dark) PaintDark();
  return result;
}

// Over what the system has painted: the border, the arrow and, where it isn't an edit field, the text.
void DropDown::PaintDark() const {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (!GetComboBoxInfo(Window(), &parts)) return;
  RECT area;
  GetClientRect(Window(), &area);
  const HDC dc = GetDC(Window());
  const UniqueBrush line(CreateSolidBrush(Colours().line)), field(CreateSolidBrush(Colours().field));
  const COLORREF ink = IsWindowEnabled(Window()) ? Colours().text : Colours().dimText;
  RECT text = area;
  text.right = parts.rcButton.left;
  if (combo_.Editable()) {
    const RECT inside = text;
    for (const int by : {-1, -2}) {
      RECT border = inside;
      InflateRect(&border, by, by);
      FrameRect(dc, &border, field.Get());
    }
    const RECT button{parts.rcButton.left - 1, area.top, area.right, area.bottom};
    FillRect(dc, &button, field.Get());
  } else {
    FillRect(dc, &area, field.Get());
    const Selected font(dc, reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ink);
    InflateRect(&text, -4, 0);
    DrawTextW(dc, combo_.Text().c_str(), static_cast<int>(combo_.Text().size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (GetFocus() == Window()) {
      RECT around = area;
      InflateRect(&around, -2, -2);
      DrawFocusRect(dc, &around);
    }
  }
  FrameRect(dc, &area, line.Get());
  const LONG x = (parts.rcButton.left + parts.rcButton.right) / 2, y = (area.top + area.bottom) / 2;
  const LONG half = (parts.rcButton.right - parts.rcButton.left) / 5;
  const UniqueBrush arrow(CreateSolidBrush(ink));
  {
    const Selected none(dc, GetStockObject(NULL_PEN)), inside(dc, arrow.Get());
    const POINT corners[] = {{x - half, y - half / 2}, {x + half, y - half / 2}, {x, y + half / 2 + 1}};
    Polygon(dc, corners, 3);
  }
  ReleaseDC(Window(), dc);
}

bool DropDown::TakeKey(WPARAM key) {
  if (Ask(CB_GETDROPPEDSTATE) == 0) return false;
  // As F4 and Alt+Up do: Enter keeps the choice, Esc drops it.
  SendMessageW(Window(), CB_SHOWDROPDOWN, FALSE, 0);
  return key == VK_RETURN || key == VK_ESCAPE;
}

}  // namespace tagrix
