#include "win32/windows/picture_window.h"

#include <windowsx.h>

namespace tagrix {
namespace {

class GdiCanvas : public Canvas {
 public:
  GdiCanvas(HDC dc, Size pixels, int dpi, const Palette& palette)
      : dc_(dc), pixels_(pixels), dpi_(dpi), palette_(palette) {
    SetBkMode(dc, TRANSPARENT);
  }

  Size Extent() const override { return {MulDiv(pixels_.width, 96, dpi_), MulDiv(pixels_.height, 96, dpi_)}; }
  void Fill(Rect area, Ink ink) override {
    const UniqueBrush brush(CreateSolidBrush(palette_.Of(ink)));
    const RECT pixels = Pixels(area);
    FillRect(dc_, &pixels, brush.Get());
  }
  void Line(Point from, Point to, Ink ink) override {
    const UniquePen pen(CreatePen(PS_SOLID, Pixels(1), palette_.Of(ink)));
    const Selected selected(dc_, pen.Get());
    MoveToEx(dc_, Pixels(from.x), Pixels(from.y), nullptr);
    LineTo(dc_, Pixels(to.x), Pixels(to.y));
  }
  void Text(Rect area, std::wstring_view text, TextPlace place, Ink ink) override {
    constexpr UINT kPlaces[] = {DT_LEFT, DT_CENTER, DT_RIGHT};
    RECT pixels = Pixels(area);
    SetTextColor(dc_, palette_.Of(ink));
    DrawTextW(dc_, text.data(), static_cast<int>(text.size()), &pixels,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | kPlaces[static_cast<int>(place)]);
  }

 private:
  int Pixels(int units) const { return MulDiv(units, dpi_, 96); }
  RECT Pixels(Rect area) const {
    return {Pixels(area.x), Pixels(area.y), Pixels(area.x + area.width), Pixels(area.y + area.height)};
  }

  HDC dc_;
  Size pixels_;
  int dpi_;
  const Palette& palette_;
};

}  // namespace

PictureWindow::PictureWindow(const Site& site, Picture& picture)
    : Binding(site, picture, {WC_STATICW, SS_OWNERDRAW | SS_NOTIFY}), picture_(picture) {
  Subclass();
}

void PictureWindow::Update(Changes changes) {
  if (changes.Has(Change::Text)) ShowText(picture_.SpokenName());
  if (changes.Has(Change::Look)) InvalidateRect(Window(), nullptr, FALSE);
}

void PictureWindow::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  dpi_ = fonts.Dpi();
}

void PictureWindow::Draw(const DRAWITEMSTRUCT& item) {
  const Buffered buffer(item.hDC, item.rcItem);
  const Selected font(buffer.Dc(), reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
  const UniqueBrush ground(CreateSolidBrush(Colours().ground));
  FillRect(buffer.Dc(), &item.rcItem, ground.Get());
  const Size pixels{static_cast<int>(item.rcItem.right), static_cast<int>(item.rcItem.bottom)};
  GdiCanvas canvas(buffer.Dc(), pixels, dpi_, Colours());
  if (picture_.paint) picture_.paint(canvas);
}

LRESULT PictureWindow::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return TRUE;  // drawn over wholly
  if (message == WM_LBUTTONDOWN && picture_.clicked) {
    RECT area;
    GetClientRect(Window(), &area);
    const auto units = [this](LONG pixels) { return MulDiv(static_cast<int>(pixels), 96, dpi_); };
    picture_.clicked({units(GET_X_LPARAM(lParam)), units(GET_Y_LPARAM(lParam))},
                     {units(area.right), units(area.bottom)});
  }
  if (message == WM_SIZE) InvalidateRect(Window(), nullptr, FALSE);
  return Binding::Message(message, wParam, lParam);
}

}  // namespace tagrix
