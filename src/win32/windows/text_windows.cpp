#include "win32/windows/text_windows.h"

#include <algorithm>

namespace tagrix {
namespace {

DWORD LabelStyleBits(const Label& label, bool wraps) {
  const bool oneLine = label.Text().find(L'\n') == std::wstring::npos;
  switch (label.Style()) {
    case LabelStyle::Path:
      return SS_LEFT | SS_PATHELLIPSIS;
    case LabelStyle::Literal:
      if (wraps) return SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL;
      return SS_LEFT | SS_NOPREFIX | (oneLine ? SS_ENDELLIPSIS : 0);
    case LabelStyle::Caption:
    case LabelStyle::Heading:
      break;
  }
  return wraps ? SS_LEFT | SS_EDITCONTROL : SS_LEFTNOWORDWRAP;
}

}  // namespace

// SS_NOTIFY lets the pointer rest on it, for tooltips.
StaticText::StaticText(const Site& site, Label& label, bool wraps)
    : Binding(site, label, {WC_STATICW, SS_NOTIFY}), label_(label), wraps_(wraps) {}

void StaticText::Update(Changes changes) {
  if (!changes.Has(Change::Text)) return;
  const LONG_PTR others =
      GetWindowLongPtrW(Window(), GWL_STYLE) & ~(SS_TYPEMASK | SS_NOPREFIX | SS_EDITCONTROL | SS_ELLIPSISMASK);
  SetWindowLongPtrW(Window(), GWL_STYLE, others | static_cast<LONG_PTR>(LabelStyleBits(label_, wraps_)));
  ShowText(label_.Text());
}

void StaticText::SetFonts(const Fonts& fonts) {
  const HFONT font = label_.Style() == LabelStyle::Heading ? fonts.Heading() : fonts.Normal();
  SendMessageW(Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

EditField::EditField(const Site& site, TextBox& box)
    : Binding(site, box, {WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE}), box_(box) {
  SendMessageW(Window(), EM_SETLIMITTEXT, 0, 0);  // none
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

bool DropDown::TakeKey(WPARAM key) {
  if (Ask(CB_GETDROPPEDSTATE) == 0) return false;
  // As F4 and Alt+Up do: Enter keeps the choice, Esc drops it.
  SendMessageW(Window(), CB_SHOWDROPDOWN, FALSE, 0);
  return key == VK_RETURN || key == VK_ESCAPE;
}

GroupBox::GroupBox(const Site& site, Frame& frame) : Binding(site, frame, {WC_BUTTONW, BS_GROUPBOX}), frame_(frame) {
  Subclass();
}

void GroupBox::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(frame_.Text());
}

LRESULT GroupBox::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_ERASEBKGND) return Binding::Message(message, wParam, lParam);
  // It stands behind what is in it, and the form is clipped by it: so it paints the ground itself.
  RECT area;
  GetClientRect(Window(), &area);
  FillRect(reinterpret_cast<HDC>(wParam), &area, GetSysColorBrush(COLOR_3DFACE));
  return TRUE;
}

ProgressBar::ProgressBar(const Site& site, ProgressBox& progress)
    : Binding(site, progress, {PROGRESS_CLASSW, PBS_SMOOTH}), progress_(progress) {}

void ProgressBar::Update(Changes changes) {
  if (changes.Has(Change::Selection)) SendMessageW(Window(), PBM_SETPOS, static_cast<WPARAM>(progress_.Percent()), 0);
}

}  // namespace tagrix
