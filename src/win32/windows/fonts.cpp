#include "win32/windows/fonts.h"

#include <algorithm>
#include <utility>

namespace tagrix {
namespace {

constexpr std::size_t kMostMeasured = 4000;

}  // namespace

Fonts::Fonts(int dpi) : dpi_(dpi), dc_(CreateCompatibleDC(nullptr)) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
  LOGFONTW font = metrics.lfMessageFont;
  normal_.Reset(CreateFontIndirectW(&font));
  font.lfWeight = FW_BOLD;
  bold_.Reset(CreateFontIndirectW(&font));
  font.lfWeight = FW_SEMIBOLD;
  font.lfHeight = font.lfHeight * 3 / 2;
  heading_.Reset(CreateFontIndirectW(&font));
}

Size Fonts::Measure(std::wstring_view text, int wrapAt, bool heading) const {
  std::tuple key(std::wstring(text), wrapAt, heading);
  if (const auto known = measured_.find(key); known != measured_.end()) return known->second;
  if (measured_.size() >= kMostMeasured) measured_.clear();

  const Selected font(dc_.Get(), heading ? Heading() : Normal());
  if (wrapAt == 0 && text.find_first_of(L"\n\t") == std::wstring_view::npos) return MeasureLine(std::move(key));
  RECT area{0, 0, wrapAt, 0};
  const UINT wrap = wrapAt > 0 ? DT_WORDBREAK | DT_EDITCONTROL : 0;
  // An empty text is as high as a line.
  const std::wstring_view sample = text.empty() ? L"X" : text;
  DrawTextW(dc_.Get(), sample.data(), static_cast<int>(sample.size()), &area,
            DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | wrap);
  const Size size{text.empty() ? 0 : static_cast<int>(area.right), static_cast<int>(area.bottom)};
  measured_.emplace(std::move(key), size);
  return size;
}

// Much quicker than the drawing of text, and the start measures every caption of every page.
Size Fonts::MeasureLine(std::tuple<std::wstring, int, bool> key) const {
  const std::wstring& text = std::get<0>(key);
  SIZE extent{};
  GetTextExtentPoint32W(dc_.Get(), text.empty() ? L"X" : text.c_str(),
                        static_cast<int>(std::max<std::size_t>(1, text.size())), &extent);
  const Size size{text.empty() ? 0 : static_cast<int>(extent.cx), static_cast<int>(extent.cy)};
  measured_.emplace(std::move(key), size);
  return size;
}

}  // namespace tagrix
