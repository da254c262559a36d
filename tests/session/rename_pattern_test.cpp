#include "session/rename_pattern.h"

#include <gtest/gtest.h>

namespace tagrix {
namespace {

std::wstring Expand(std::wstring_view pattern, std::int16_t track = 3) {
  return ExpandPattern(pattern, L" AC/DC ", L" Live ", track, L" Who? ", L" 1973", L"Rock ");
}

TEST(ExpandPattern, PutsTrimmedValuesInAndDeletesWhatNoNameMayHold) {
  EXPECT_EQ(Expand(L"%1 - %3 - %6 - %2"), L"ACDC - Live - 03 - Who");
  EXPECT_EQ(Expand(L"[%4][%5]"), L"[ 1973][Rock ]");
  EXPECT_EQ(Expand(L"%6%6 %7 % %", 123), L"123123 %7 % %");
}

// A value that holds a token takes part in the replacements that follow its own, and only in those.
TEST(ExpandPattern, ExpandsTokensWithinValues) {
  EXPECT_EQ(ExpandPattern(L"%1", L"%3%6%2%4%5", L"%1", 7, L"%6", L"%2", L"%4"), L"%107%6%2%4");
  EXPECT_EQ(ExpandPattern(L"%%1", L"2", L"", 1, L"Title", L"", L""), L"Title");
}

}  // namespace
}  // namespace tagrix
