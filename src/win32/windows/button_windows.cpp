#include "win32/windows/button_windows.h"

#include <algorithm>
#include <utility>

namespace tagrix {
namespace {

// An owner-drawn button reports the second click of a double click apart.
bool IsClick(int code) { return code == BN_CLICKED || code == BN_DOUBLECLICKED; }

bool PressedByEnter(Button& button, WPARAM key) {
  if (key != VK_RETURN) return false;
  button.Click();
  return true;
}

void ShowTick(HWND window, bool checked) {
  const LRESULT state = checked ? BST_CHECKED : BST_UNCHECKED;
  if (SendMessageW(window, BM_GETCHECK, 0, 0) != state)
    SendMessageW(window, BM_SETCHECK, static_cast<WPARAM>(state), 0);
}

COLORREF Mix(COLORREF a, COLORREF b, int percentOfB) {
  const auto mix = [percentOfB](int from, int to) { return static_cast<BYTE>(from + (to - from) * percentOfB / 100); };
  return RGB(mix(GetRValue(a), GetRValue(b)), mix(GetGValue(a), GetGValue(b)), mix(GetBValue(a), GetBValue(b)));
}

}  // namespace

PushButton::PushButton(const Site& site, Button& button, bool isDefault)
    : Binding(site, button,
              {WC_BUTTONW, WS_TABSTOP | static_cast<DWORD>(isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)}),
      button_(button) {}

void PushButton::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(button_.Text());
}

void PushButton::Command(int code) {
  if (IsClick(code)) button_.Click();
}

bool PushButton::TakeKey(WPARAM key) { return PressedByEnter(button_, key); }

ImageButton::ImageButton(const Site& site, Button& button)
    : Binding(site, button, {WC_BUTTONW, WS_TABSTOP | BS_OWNERDRAW}), button_(button) {
  Subclass();
}

void ImageButton::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(button_.Text());
  if (changes.Has(Change::Look)) {
    loaded_ = false;
    InvalidateRect(Window(), nullptr, FALSE);
  }
}

void ImageButton::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  dpi_ = fonts.Dpi();
  loaded_ = false;
}

void ImageButton::Command(int code) {
  if (IsClick(code)) button_.Click();
}

bool ImageButton::TakeKey(WPARAM key) { return PressedByEnter(button_, key); }

LRESULT ImageButton::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return TRUE;
  if (message == WM_MOUSEMOVE && !hot_) {
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Window(), 0};
    hot_ = TrackMouseEvent(&track) != FALSE;
    InvalidateRect(Window(), nullptr, FALSE);
  }
  if (message == WM_MOUSELEAVE) {
    hot_ = false;
    InvalidateRect(Window(), nullptr, FALSE);
  }
  return Binding::Message(message, wParam, lParam);
}

void ImageButton::Draw(const DRAWITEMSTRUCT& item) {
  if (!std::exchange(loaded_, true)) image_.Load(button_.Image(), MulDiv(button_.ImageSize(), dpi_, 96));
  const Buffered buffer(item.hDC, item.rcItem);
  DrawFace(buffer.Dc(), item.rcItem, item.itemState);
  DrawContent(buffer.Dc(), item.rcItem, item.itemState);
  if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
    RECT inside = item.rcItem;
    InflateRect(&inside, -3, -3);
    DrawFocusRect(buffer.Dc(), &inside);
  }
}

void ImageButton::DrawFace(HDC dc, RECT area, UINT state) const {
  const COLORREF white = GetSysColor(COLOR_WINDOW), accent = GetSysColor(COLOR_HIGHLIGHT);
  const bool pressed = (state & ODS_SELECTED) != 0, lively = (hot_ || pressed) && (state & ODS_DISABLED) == 0;
  const UniqueBrush edge(CreateSolidBrush(lively ? accent : GetSysColor(COLOR_3DSHADOW)));
  FillRect(dc, &area, edge.Get());
  InflateRect(&area, -1, -1);
  const UniqueBrush face(CreateSolidBrush(lively ? Mix(white, accent, pressed ? 25 : 10) : white));
  FillRect(dc, &area, face.Get());
  if (!button_.Marked()) return;
  const UniqueBrush mark(CreateSolidBrush(accent));
  area.top = area.bottom - MulDiv(3, dpi_, 96);
  FillRect(dc, &area, mark.Get());
}

void ImageButton::DrawContent(HDC dc, RECT area, UINT state) const {
  const bool disabled = (state & ODS_DISABLED) != 0;
  const Selected font(dc, reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
  RECT text{0, 0, area.right - area.left, 0};
  const UINT format = DT_SINGLELINE | DT_END_ELLIPSIS | ((state & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0);
  const std::wstring& caption = button_.Text();
  const int length = static_cast<int>(caption.size());
  if (length > 0) DrawTextW(dc, caption.c_str(), length, &text, format | DT_CALCRECT);

  const Size image = image_.Extent(std::max<int>(0, area.right - area.left - 4));
  const int gap = length > 0 && image.height > 0 ? MulDiv(2, dpi_, 96) : 0;
  const int top = area.top + (area.bottom - area.top - image.height - gap - text.bottom) / 2;
  const int left = area.left + (area.right - area.left - image.width) / 2;
  image_.Draw(dc, {left, top, image.width, image.height}, disabled);

  text = {area.left + 2, top + image.height + gap, area.right - 2, area.bottom};
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
  if (length > 0) DrawTextW(dc, caption.c_str(), length, &text, format | DT_CENTER | DT_TOP);
}

TickBox::TickBox(const Site& site, CheckBox& box)
    : Binding(site, box, {WC_BUTTONW, WS_TABSTOP | BS_CHECKBOX}), box_(box) {}

void TickBox::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(box_.Text());
  ShowTick(Window(), box_.Checked());
}

void TickBox::Command(int code) {
  if (IsClick(code)) box_.Click();
}

RadioButton::RadioButton(const Site& site, OptionButton& option)
    : Binding(site, option, {WC_BUTTONW, BS_AUTORADIOBUTTON | (option.FirstOfGroup() ? WS_TABSTOP | WS_GROUP : 0UL)}),
      option_(option) {}

void RadioButton::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(option_.Text());
  ShowTick(Window(), option_.Checked());
}

void RadioButton::Command(int code) {
  // The system also reports one that was chosen by the arrow keys, or that the keyboard has come back to.
  if (IsClick(code) && !option_.Checked()) option_.Click();
}

}  // namespace tagrix
