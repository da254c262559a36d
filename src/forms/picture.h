// A picture that the program draws itself, in the system's colours.
#ifndef TAGRIX_FORMS_PICTURE_H
#define TAGRIX_FORMS_PICTURE_H

#include <functional>
#include <string>
#include <string_view>

#include "forms/control.h"
#include "forms/geometry.h"

namespace tagrix {

// What is drawn, so that the renderer can choose a colour that fits the user's theme and contrast.
enum class Ink { Background, Frame, Text, DimText, Accent, Good, Warning, Error };
enum class TextPlace { Left, Centre, Right };

// Coordinates in device-independent units, the origin at the picture's top left corner.
class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual Size Extent() const = 0;
  virtual void Fill(Rect area, Ink ink) = 0;
  virtual void Line(Point from, Point to, Ink ink) = 0;
  virtual void Text(Rect area, std::wstring_view text, TextPlace place, Ink ink) = 0;  // one line, centred upright
};

class Picture : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  void Refresh() { Announce(Change::Look); }

  std::function<void(Canvas&)> paint;
  // The user clicks it, there; the extent is that of the canvas.
  std::function<void(Point at, Size extent)> clicked;
};

}  // namespace tagrix

#endif
