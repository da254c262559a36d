// How much of an audio CD a compilation fills, as text, as a share and as a drawn bar.
#ifndef TAGRIX_TOOLS_BURN_CAPACITY_H
#define TAGRIX_TOOLS_BURN_CAPACITY_H

#include <string>

#include "forms/picture.h"

namespace tagrix {

inline constexpr double kCdCapacity = 4'440'000;  // milliseconds: 74 minutes

// "62min 5sec ": whole minutes and seconds of a time in milliseconds.
std::wstring BurnTime(double milliseconds);

// Draws the playing time as a bar over a scale of minutes: the disc's 74, or as many as there are; what is beyond the
// capacity is shown as an error.
void PaintCapacity(Canvas& canvas, double milliseconds);

}  // namespace tagrix

#endif
