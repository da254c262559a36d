// Labels, frames and progress boxes: their form draws them, since a window for each would make the start longer.
// Programs that read the screen aloud get windows that stand in for them as soon as they ask.
#ifndef TAGRIX_WIN32_WINDOWS_STAND_INS_H
#define TAGRIX_WIN32_WINDOWS_STAND_INS_H

#include <memory>

#include "win32/windows/binding.h"

namespace tagrix {

bool IsDrawn(const Control& control);

// Makes the window that stands in for one of them: it has its place and text, and draws nothing.
std::unique_ptr<Binding> MakeStandIn(const Site& site, Control& control);
// One that can't be seen, for a control that no label names: the system takes the label before a control for its name.
std::unique_ptr<Binding> MakeHiddenLabel(const Site& site, const Control& control, const std::wstring& name);

}  // namespace tagrix

#endif
