// The colours of the window: the system's own, dark ones when the user wants dark programs, and those of high contrast.
#ifndef TAGRIX_WIN32_WINDOWS_PALETTE_H
#define TAGRIX_WIN32_WINDOWS_PALETTE_H

#include <windows.h>

#include "forms/picture.h"

namespace tagrix {

struct Palette {
  // What the user has chosen in the system's settings, as they are now.
  static Palette Current();
  static Palette Light();
  static Palette Dark();
  static Palette HighContrast();

  COLORREF ground, text, dimText;       // of the window and of what is written on it
  COLORREF field, line;                 // behind entries; around fields and frames
  COLORREF accent, onAccent;            // what is in force or comes next, and what is written on that
  COLORREF selected, onSelected;        // chosen rows of the list that has the keyboard
  COLORREF resting, onResting;          // those of the others
  COLORREF good, warning, error;        // on fields
  bool dark = false, contrast = false;  // the system's light look stays where neither is set

  COLORREF Of(Ink ink) const;
};

COLORREF Mix(COLORREF a, COLORREF b, int percentOfB);

// Has the system draw the window's title bar, menus and scroll bars to go with the palette, where it can.
void ApplyToTitleBar(HWND form, const Palette& palette);
void ApplyToScrollBars(HWND control, const Palette& palette);

}  // namespace tagrix

#endif
