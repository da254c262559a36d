// How controls look that the form draws itself: labels, frames and progress boxes, the faces of buttons, the boxes
// around fields and lists, and what these show while they have no window of their own.
#ifndef TAGRIX_WIN32_WINDOWS_CONTROL_DRAWING_H
#define TAGRIX_WIN32_WINDOWS_CONTROL_DRAWING_H

#include "forms/control.h"
#include "win32/windows/fonts.h"
#include "win32/windows/image.h"
#include "win32/windows/palette.h"

namespace tagrix {

struct DrawnState {
  Rect rect;               // in its form or its window, pixels
  bool enabled = true;     // as far as the frames around it are, too
  bool wraps = false;      // a label whose text may take several lines
  bool hidesKeys = false;  // access keys are not underlined until Alt is pressed
  bool hot = false, pressed = false, focused = false;
  bool isDefault = false;  // Enter presses it
};

// What the drawing takes from its form; all of it outlives the drawing.
struct Look {
  const Fonts& fonts;
  const Palette& palette;
  Images& images;
};

void DrawControl(HDC dc, Control& control, const DrawnState& state, const Look& look);

// Whether the form draws the face of the control's window, which is a button.
bool HasDrawnFace(const Control& control);
// Whether the form can draw the control as it is until the user comes to it.
bool CanWait(const Control& control);
// Whether the form draws a box around the control's window.
bool HasBox(const Control& control);
// The place of the control's window within the control's.
Rect InsideBox(const Control& control, Rect rect, const Fonts& fonts);
// The whole text of a label that is cut off; empty when it isn't.
std::wstring CutOffText(const Control& control, Size room, const Fonts& fonts);
// Draws the hint of an empty list.
void DrawHint(HDC dc, RECT area, const std::wstring& hint, const Fonts& fonts, const Palette& palette);

}  // namespace tagrix

#endif
