#include "win32/windows/palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tagrix {
namespace {

// Relative luminance and contrast ratio (https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio).
double Luminance(COLORREF colour) {
  const auto linear = [](BYTE part) {
    const double c = part / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) + 0.0722 * linear(GetBValue(colour));
}
double Contrast(COLORREF a, COLORREF b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

TEST(Palette, WhatIsWrittenCanBeReadLightAndDark) {
  for (const Palette& colours : {Palette::Light(), Palette::Dark()}) {
    SCOPED_TRACE(colours.dark ? "dark" : "light");
    for (const auto& [ink, ground] : {std::pair(colours.text, colours.ground),
                                      {colours.text, colours.field},
                                      {colours.onAccent, colours.accent},
                                      {colours.onResting, colours.resting},
                                      {colours.good, colours.field},
                                      {colours.warning, colours.field},
                                      {colours.error, colours.field},
                                      {colours.dimText, colours.field}}) {
      EXPECT_GE(Contrast(ink, ground), 4.5) << std::hex << ink << " on " << ground;
    }
    // In the light the system chooses it.
    if (colours.dark) {
      EXPECT_GE(Contrast(colours.onSelected, colours.selected), 4.5);
    }
    EXPECT_GE(Contrast(colours.dimText, colours.ground), 3);
    EXPECT_GE(Contrast(colours.resting, colours.field), 1.3) << "a chosen row shows without the keyboard";
  }
}

}  // namespace
}  // namespace tagrix
