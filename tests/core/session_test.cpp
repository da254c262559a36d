#include "core/session.h"

#include <gtest/gtest.h>

#include "core/text.h"

namespace tagrix {
namespace {

TEST(Session, WritesTimesByTheNearestSecond) {
  EXPECT_EQ(MinutesAndSeconds(0), L"");
  EXPECT_EQ(MinutesAndSeconds(59499), L"0:59");
  EXPECT_EQ(MinutesAndSeconds(59500), L"1:00");
  EXPECT_EQ(MinutesAndSeconds(FramesToMilliseconds(75 * 6123)), L"102:03");
}

TEST(Numbers, RoundAndAreWritten) {
  EXPECT_EQ(RoundToInteger(-1e300), -2147483647 - 1);
  EXPECT_EQ(Decimals(5.5599, 2, L','), L"5,56");
  EXPECT_EQ(Decimals(0.125, 2, L'.'), L"0.13");
  EXPECT_EQ(Decimals(-1.05, 1, L'.'), L"-1.1");
  EXPECT_EQ(Decimals(-0.04, 1, L'.'), L"0.0");
}

}  // namespace
}  // namespace tagrix
