#include "base/letter_case.h"

#include <gtest/gtest.h>

#include <map>

namespace tagrix {

// The letters themselves are compared with Windows's, one by one.
TEST(LetterCase, DoesntMatterInComparisons) {
  EXPECT_TRUE(EqualIgnoringCase(L"Οδυσσεύς", L"ΟΔΥΣΣΕΎΣ"));
  EXPECT_FALSE(EqualIgnoringCase(L"a", L"ab"));
  EXPECT_FALSE(EqualIgnoringCase(L"sıfır", L"SIFIR"));
  EXPECT_TRUE(StartsWithIgnoringCase(L"Țara mea", L"țARA"));
  EXPECT_FALSE(StartsWithIgnoringCase(L"ța", L"țara"));
  // Orders and hashes agree with that.
  const std::map<std::wstring, int, LessIgnoringCase> ordered = {{L"Ș", 3}, {L"_", 1}, {L"a", 2}, {L"ς", 4}};
  EXPECT_EQ(ordered.begin()->second, 1);
  EXPECT_TRUE(ordered.contains(L"Σ"));
  EXPECT_EQ(HashIgnoringCase()(L"ς"), HashIgnoringCase()(L"σ"));
}

}  // namespace tagrix
