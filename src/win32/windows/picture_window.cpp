#include "win32/windows/picture_window.h"

namespace tagrix {
namespace {

bool HighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

class GdiCanvas : public Canvas {
 public:
  GdiCanvas(HDC dc, Size pixels, int dpi) : dc_(dc), pixels_(pixels), dpi_(dpi) { SetBkMode(dc, TRANSPARENT); }

  Size Extent() const override { return {MulDiv(pixels_.width, 96, dpi_), MulDiv(pixels_.height, 96, dpi_)}; }
  void Fill(Rect area, Ink ink) override {
    const UniqueBrush brush(CreateSolidBrush(ColourOf(ink)));
    const RECT pixels = Pixels(area);
    FillRect(dc_, &pixels, brush.Get());
  }
  void Line(Point from, Point to, Ink ink) override {
    const UniquePen pen(CreatePen(PS_SOLID, Pixels(1), ColourOf(ink)));
    const Selected selected(dc_, pen.Get());
    MoveToEx(dc_, Pixels(from.x), Pixels(from.y), nullptr);
    LineTo(dc_, Pixels(to.x), Pixels(to.y));
  }
  void Text(Rect area, std::wstring_view text, TextPlace place, Ink ink) override {
    constexpr UINT kPlaces[] = {DT_LEFT, DT_CENTER, DT_RIGHT};
    RECT pixels = Pixels(area);
    SetTextColor(dc_, ColourOf(ink));
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
};

}  // namespace

COLORREF ColourOf(Ink ink) {
  const bool plain = !HighContrast();
  switch (ink) {
    case Ink::Background:
      return GetSysColor(COLOR_WINDOW);
    case Ink::Frame:
      return GetSysColor(plain ? COLOR_3DSHADOW : COLOR_WINDOWTEXT);
    case Ink::Text:
      return GetSysColor(COLOR_WINDOWTEXT);
    case Ink::DimText:
      return GetSysColor(COLOR_GRAYTEXT);
    case Ink::Accent:
      return GetSysColor(COLOR_HIGHLIGHT);
    case Ink::Good:
      return plain ? RGB(0x2E, 0x7D, 0x32) : GetSysColor(COLOR_WINDOWTEXT);
    case Ink::Warning:
      return plain ? RGB(0xE0, 0x8A, 0x00) : GetSysColor(COLOR_HOTLIGHT);
    case Ink::Error:
      return plain ? RGB(0xC6, 0x28, 0x28) : GetSysColor(COLOR_HOTLIGHT);
  }
  return GetSysColor(COLOR_WINDOWTEXT);
}

PictureWindow::PictureWindow(const Site& site, Picture& picture)
    : Binding(site, picture, {WC_STATICW, SS_OWNERDRAW | SS_NOTIFY}), picture_(picture) {
  Subclass();
}

void PictureWindow::Update(Changes changes) {
  if (changes.Has(Change::Look)) InvalidateRect(Window(), nullptr, FALSE);
}

void PictureWindow::SetFonts(const Fonts& fonts) {
  Binding::SetFonts(fonts);
  dpi_ = fonts.Dpi();
}

void PictureWindow::Draw(const DRAWITEMSTRUCT& item) {
  const Buffered buffer(item.hDC, item.rcItem);
  const Selected font(buffer.Dc(), reinterpret_cast<HFONT>(SendMessageW(Window(), WM_GETFONT, 0, 0)));
  FillRect(buffer.Dc(), &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
  const Size pixels{static_cast<int>(item.rcItem.right), static_cast<int>(item.rcItem.bottom)};
  GdiCanvas canvas(buffer.Dc(), pixels, dpi_);
  if (picture_.paint) picture_.paint(canvas);
}

LRESULT PictureWindow::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return TRUE;  // drawn over wholly
  if (message == WM_SIZE) InvalidateRect(Window(), nullptr, FALSE);
  return Binding::Message(message, wParam, lParam);
}

}  // namespace tagrix
