// Letter case against Windows's own, its invariant mapping.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "base/letter_case.h"

namespace tagrix {
namespace {

// Without linguistic casing, as file names need it.
wchar_t InvariantCase(wchar_t c, DWORD direction) {
  wchar_t mapped = 0;
  EXPECT_EQ(LCMapStringEx(LOCALE_NAME_INVARIANT, direction, &c, 1, &mapped, 1, nullptr, nullptr, 0), 1);
  return mapped;
}

// All 65,536 units in both directions, with the letters of Unicode 15.0: what Wine 8 and our table are made of.
// Wine takes the final sigma for a letter without a capital; Windows doesn't.
TEST(LetterCase, IsThatOfTheInvariantLocale) {
  constexpr wchar_t kFinalSigma = 0x3C2;
  std::wstring upperDiffers, lowerDiffers;
  for (unsigned code = 0; code <= 0xFFFF; ++code) {
    const auto c = static_cast<wchar_t>(code);
    if (c != kFinalSigma && ToUpper(c) != InvariantCase(c, LCMAP_UPPERCASE)) upperDiffers += c;
    if (ToLower(c) != InvariantCase(c, LCMAP_LOWERCASE)) lowerDiffers += c;
  }
  EXPECT_EQ(upperDiffers, L"");
  EXPECT_EQ(lowerDiffers, L"");
}

}  // namespace
}  // namespace tagrix
