// The system's message font at one DPI, and texts measured in it.
#ifndef TAGRIX_WIN32_WINDOWS_FONTS_H
#define TAGRIX_WIN32_WINDOWS_FONTS_H

#include <map>
#include <string>
#include <tuple>

#include "forms/layout.h"
#include "win32/windows/gdi.h"

namespace tagrix {

class Fonts : public TextMeasurer {
 public:
  explicit Fonts(int dpi);

  int Dpi() const { return dpi_; }
  int Pixels(int units) const { return MulDiv(units, dpi_, 96); }
  HFONT Normal() const { return normal_.Get(); }
  HFONT Bold() const { return bold_.Get(); }
  HFONT Heading() const { return heading_.Get(); }

  Size Measure(std::wstring_view text, int wrapAt, bool heading) const override;

 private:
  // With the font selected.
  Size MeasureLine(std::tuple<std::wstring, int, bool> key) const;

  int dpi_;
  UniqueFont normal_, bold_, heading_;
  UniqueMemoryDc dc_;
  // A resize asks for the same texts again and again.
  mutable std::map<std::tuple<std::wstring, int, bool>, Size> measured_;
};

}  // namespace tagrix

#endif
