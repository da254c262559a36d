// Labels, frames and progress boxes: their form draws them, since a window for each would make the start longer.
// Programs that read the screen aloud get windows that stand in for them as soon as they ask.
#ifndef TAGRIX_WIN32_WINDOWS_DRAWN_CONTROLS_H
#define TAGRIX_WIN32_WINDOWS_DRAWN_CONTROLS_H

#include <memory>

#include "win32/windows/binding.h"
#include "win32/windows/palette.h"

namespace tagrix {

struct DrawnState {
  Rect rect;       // in its form, pixels
  bool enabled;    // as far as the frames around it are, too
  bool wraps;      // a label whose text may take several lines
  bool hidesKeys;  // access keys are not underlined until Alt is pressed
};

bool IsDrawn(const Control& control);
// Draws one of them.
void DrawControl(HDC dc, Control& control, const DrawnState& state, const Fonts& fonts, const Palette& palette);
// The whole text of a label that is cut off; empty when it isn't.
std::wstring CutOffText(const Control& control, Size room, const Fonts& fonts);

// Makes the window that stands in for one of them: it has its place and text, and draws nothing.
std::unique_ptr<Binding> MakeStandIn(const Site& site, Control& control);
// One that can't be seen, for a control that no label names: the system takes the label before a control for its name.
std::unique_ptr<Binding> MakeHiddenLabel(const Site& site, const Control& control, const std::wstring& name);

}  // namespace tagrix

#endif
