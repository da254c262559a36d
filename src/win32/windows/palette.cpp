#include "win32/windows/palette.h"

// Need windows.h before them.
#include <dwmapi.h>
#include <uxtheme.h>

namespace tagrix {
namespace {

bool UserWantsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool UserWantsDark() {
  DWORD light = 1, size = sizeof light;
  RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
               L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return light == 0;
}

// Whether black stands out better than white (https://www.w3.org/TR/AERT/#color-contrast).
bool IsBright(COLORREF colour) {
  return 299 * GetRValue(colour) + 587 * GetGValue(colour) + 114 * GetBValue(colour) >= 128'000;
}

}  // namespace

COLORREF Mix(COLORREF a, COLORREF b, int percentOfB) {
  const auto mix = [percentOfB](int from, int to) { return static_cast<BYTE>(from + (to - from) * percentOfB / 100); };
  return RGB(mix(GetRValue(a), GetRValue(b)), mix(GetGValue(a), GetGValue(b)), mix(GetBValue(a), GetBValue(b)));
}

Palette Palette::Current() {
  if (UserWantsHighContrast()) return HighContrast();
  return UserWantsDark() ? Dark() : Light();
}

Palette Palette::Light() {
  Palette light{};
  light.ground = GetSysColor(COLOR_3DFACE);
  light.text = GetSysColor(COLOR_WINDOWTEXT);
  light.dimText = Mix(light.text, light.ground, 42);
  light.field = GetSysColor(COLOR_WINDOW);
  light.line = GetSysColor(COLOR_3DSHADOW);
  light.accent = light.selected = GetSysColor(COLOR_HIGHLIGHT);
  light.onAccent = IsBright(light.accent) ? RGB(0, 0, 0) : RGB(0xFF, 0xFF, 0xFF);
  light.onSelected = GetSysColor(COLOR_HIGHLIGHTTEXT);
  light.resting = Mix(light.field, light.selected, 30);
  light.onResting = light.text;
  light.good = RGB(0x2E, 0x7D, 0x32);
  light.warning = RGB(0x9A, 0x5B, 0x00);
  light.error = RGB(0xC6, 0x28, 0x28);
  return light;
}

Palette Palette::Dark() {
  Palette dark{};
  dark.ground = RGB(0x20, 0x20, 0x20);
  dark.text = RGB(0xF2, 0xF2, 0xF2);
  dark.dimText = RGB(0xA8, 0xA8, 0xA8);
  dark.field = RGB(0x2B, 0x2B, 0x2B);
  dark.line = RGB(0x5C, 0x5C, 0x5C);
  dark.accent = RGB(0x4C, 0xB4, 0xF0);
  dark.onAccent = RGB(0x00, 0x00, 0x00);
  dark.selected = RGB(0x0F, 0x5F, 0x9C);
  dark.onSelected = RGB(0xFF, 0xFF, 0xFF);
  dark.resting = Mix(dark.field, dark.selected, 55);
  dark.onResting = dark.text;
  dark.good = RGB(0x6C, 0xCB, 0x5F);
  dark.warning = RGB(0xF2, 0xB2, 0x33);
  dark.error = RGB(0xFF, 0x8A, 0x80);
  dark.dark = true;
  return dark;
}

Palette Palette::HighContrast() {
  Palette contrast{};
  contrast.ground = GetSysColor(COLOR_3DFACE);
  contrast.text = GetSysColor(COLOR_BTNTEXT);
  contrast.dimText = GetSysColor(COLOR_GRAYTEXT);
  contrast.field = GetSysColor(COLOR_WINDOW);
  contrast.line = contrast.good = GetSysColor(COLOR_WINDOWTEXT);
  contrast.accent = contrast.selected = contrast.resting = GetSysColor(COLOR_HIGHLIGHT);
  contrast.onAccent = contrast.onSelected = contrast.onResting = GetSysColor(COLOR_HIGHLIGHTTEXT);
  contrast.warning = contrast.error = GetSysColor(COLOR_HOTLIGHT);
  contrast.contrast = true;
  return contrast;
}

COLORREF Palette::Of(Ink ink) const {
  switch (ink) {
    case Ink::Background:
      return field;
    case Ink::Frame:
      return line;
    case Ink::Text:
      return text;
    case Ink::DimText:  // the dim colour of high contrast says that something is disabled
      return contrast ? text : dimText;
    case Ink::Accent:
      return accent;
    case Ink::Good:
      return good;
    case Ink::Warning:
      return warning;
    case Ink::Error:  // high contrast has one colour for texts that stand out, and one more for what isn't text
      return contrast ? accent : error;
  }
  return text;
}

// The libraries are only loaded for a dark window: the system's own look needs neither.
void ApplyToTitleBar(HWND form, const Palette& palette) {
  constexpr DWORD kImmersiveDarkMode = 20;  // DWMWA_USE_IMMERSIVE_DARK_MODE
  const BOOL dark = palette.dark;
  static_cast<void>(DwmSetWindowAttribute(form, kImmersiveDarkMode, &dark, sizeof dark));
}

void ApplyToScrollBars(HWND control, const Palette& palette) {
  SetWindowTheme(control, palette.dark ? L"DarkMode_Explorer" : nullptr, nullptr);
}

}  // namespace tagrix
