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

// What a screen reader takes for the name of a button that draws its caption itself.
const std::wstring& NameOf(const Button& button) {
  if (!button.SpokenName().empty()) return button.SpokenName();
  return button.Text().empty() ? button.Tooltip() : button.Text();
}

}  // namespace

SystemButton::SystemButton(const Site& site, const Control& control, const WindowKind& kind)
    : Binding(site, control, kind) {
  Subclass();
}

// It has no border, and the system takes long to find that out.
LRESULT SystemButton::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  return message == WM_NCPAINT ? 0 : Binding::Message(message, wParam, lParam);
}

void SystemButton::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  dpi_ = fonts.Dpi();
}

std::optional<LRESULT> SystemButton::Notify(NMHDR& note) {
  if (note.code != NM_CUSTOMDRAW || !DrawsItself()) return std::nullopt;
  const auto& draw = reinterpret_cast<const NMCUSTOMDRAW&>(note);
  if (draw.dwDrawStage != CDDS_PREERASE && draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
  const UniqueBrush ground(CreateSolidBrush(Colours().ground));
  FillRect(draw.hdc, &draw.rc, ground.Get());
  DrawFace(draw);
  return CDRF_SKIPDEFAULT;
}

void SystemButton::DrawCaption(const NMCUSTOMDRAW& draw, RECT area, UINT format, COLORREF colour) const {
  const std::wstring caption = WindowText();
  const LRESULT hidden = SendMessageW(Window(), WM_QUERYUISTATE, 0, 0);
  if ((hidden & UISF_HIDEACCEL) != 0) format |= DT_HIDEPREFIX;
  const Selected font(draw.hdc, reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
  SetBkMode(draw.hdc, TRANSPARENT);
  SetTextColor(draw.hdc, colour);
  DrawTextW(draw.hdc, caption.c_str(), static_cast<int>(caption.size()), &area, format | DT_SINGLELINE | DT_VCENTER);
  if ((draw.uItemState & CDIS_FOCUS) == 0 || (hidden & UISF_HIDEFOCUS) != 0) return;
  RECT around = draw.rc;
  InflateRect(&around, -Pixels(3), -Pixels(3));
  DrawFocusRect(draw.hdc, (format & DT_CENTER) != 0 ? &around : &area);
}

PushButton::PushButton(const Site& site, Button& button, bool isDefault)
    : SystemButton(site, button,
                   {WC_BUTTONW, WS_TABSTOP | static_cast<DWORD>(isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)}),
      button_(button) {}

void PushButton::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(button_.Text());
  if (changes.Has(Change::Selection)) InvalidateRect(Window(), nullptr, TRUE);
}

bool PushButton::DrawsItself() const { return Colours().dark || (button_.Marked() && !Colours().contrast); }

void PushButton::DrawFace(const NMCUSTOMDRAW& draw) {
  const Palette& colours = Colours();
  const bool usable = (draw.uItemState & CDIS_DISABLED) == 0, marked = button_.Marked() && usable;
  const bool pressed = (draw.uItemState & CDIS_SELECTED) != 0, hot = (draw.uItemState & CDIS_HOT) != 0;
  const COLORREF plain = marked ? colours.accent : Mix(colours.field, colours.text, colours.dark ? 8 : 2);
  const COLORREF lively = Mix(plain, marked ? colours.field : colours.accent, pressed ? 30 : 15);
  RECT area = draw.rc;
  const UniqueBrush line(CreateSolidBrush(marked || hot ? colours.accent : colours.line));
  FillRect(draw.hdc, &area, line.Get());
  InflateRect(&area, -1, -1);
  const UniqueBrush face(CreateSolidBrush(usable && (hot || pressed) ? lively : plain));
  FillRect(draw.hdc, &area, face.Get());
  DrawCaption(draw, area, DT_CENTER, marked ? colours.onAccent : usable ? colours.text : colours.dimText);
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
  if (changes.Has(Change::Text) || changes.Has(Change::Look)) ShowText(NameOf(button_));
  InvalidateRect(Window(), nullptr, FALSE);
  if (changes.Has(Change::Look)) loaded_ = false;
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
  if (message == WM_NCPAINT) return 0;  // as above
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
  const COLORREF plain = Colours().field, accent = Colours().accent;
  const bool pressed = (state & ODS_SELECTED) != 0, lively = (hot_ || pressed) && (state & ODS_DISABLED) == 0;
  const UniqueBrush edge(CreateSolidBrush(lively ? accent : Colours().line));
  FillRect(dc, &area, edge.Get());
  InflateRect(&area, -1, -1);
  const UniqueBrush face(CreateSolidBrush(lively ? Mix(plain, accent, pressed ? 25 : 10) : plain));
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
  SetTextColor(dc, disabled ? Colours().dimText : Colours().text);
  if (length > 0) DrawTextW(dc, caption.c_str(), length, &text, format | DT_CENTER | DT_TOP);
}

void Ticked::ShowTick(bool checked) {
  const LRESULT state = checked ? BST_CHECKED : BST_UNCHECKED;
  if (SendMessageW(Window(), BM_GETCHECK, 0, 0) != state) {
    SendMessageW(Window(), BM_SETCHECK, static_cast<WPARAM>(state), 0);
  }
}

void Ticked::DrawFace(const NMCUSTOMDRAW& draw) {
  const Palette& colours = Colours();
  const bool usable = (draw.uItemState & CDIS_DISABLED) == 0, hot = (draw.uItemState & CDIS_HOT) != 0;
  const int side = Pixels(13);
  const int top = static_cast<int>(draw.rc.top + draw.rc.bottom - side) / 2;
  const RECT box{draw.rc.left, top, draw.rc.left + side, top + side};
  const UniquePen pen(CreatePen(PS_SOLID, Pixels(1), hot && usable ? colours.accent : colours.line));
  const UniqueBrush field(CreateSolidBrush(colours.field));
  {
    const Selected line(draw.hdc, pen.Get()), inside(draw.hdc, field.Get());
    (Round() ? Ellipse : Rectangle)(draw.hdc, box.left, box.top, box.right, box.bottom);
  }
  if (SendMessageW(Window(), BM_GETCHECK, 0, 0) == BST_CHECKED) {
    DrawMark(draw.hdc, box, usable ? colours.accent : colours.dimText);
  }
  RECT text = draw.rc;
  text.left = box.right + Pixels(4);
  DrawCaption(draw, text, DT_LEFT, usable ? colours.text : colours.dimText);
}

void TickBox::DrawMark(HDC dc, RECT box, COLORREF colour) const {
  const UniquePen pen(CreatePen(PS_SOLID, Pixels(2), colour));
  const Selected line(dc, pen.Get());
  const POINT tick[] = {{box.left + Pixels(3), box.top + Pixels(6)},
                        {box.left + Pixels(5), box.top + Pixels(9)},
                        {box.left + Pixels(10), box.top + Pixels(3)}};
  Polyline(dc, tick, 3);
}

void RadioButton::DrawMark(HDC dc, RECT box, COLORREF colour) const {
  const UniqueBrush brush(CreateSolidBrush(colour));
  const Selected line(dc, GetStockObject(NULL_PEN)), inside(dc, brush.Get());
  Ellipse(dc, box.left + Pixels(3), box.top + Pixels(3), box.right - Pixels(2), box.bottom - Pixels(2));
}

TickBox::TickBox(const Site& site, CheckBox& box)
    : Ticked(site, box, {WC_BUTTONW, WS_TABSTOP | BS_CHECKBOX}), box_(box) {}

void TickBox::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(box_.Text());
  ShowTick(box_.Checked());
}

void TickBox::Command(int code) {
  if (IsClick(code)) box_.Click();
}

RadioButton::RadioButton(const Site& site, OptionButton& option)
    : Ticked(site, option, {WC_BUTTONW, BS_AUTORADIOBUTTON | (option.FirstOfGroup() ? WS_TABSTOP | WS_GROUP : 0UL)}),
      option_(option) {}

void RadioButton::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(option_.Text());
  ShowTick(option_.Checked());
}

void RadioButton::Command(int code) {
  // The system also reports one that was chosen by the arrow keys, or that the keyboard has come back to.
  if (IsClick(code) && !option_.Checked()) option_.Click();
}

}  // namespace tagrix
