// The data files that lie beside the program.
#include <gtest/gtest.h>

#include <set>

#include "assets/source_files.h"

namespace tagrix {
namespace {

TEST(BuiltInEnglish, IsAscii) {
  for (const char c : ReadSource("assets/english.lfx")) ASSERT_GT(c, '\0');
}

// Line i names genre 147 - i.
TEST(GenreList, IsCompleteAndDescends) {
  const std::vector<std::string> names = Lines("assets/styles.dat");
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 148U);
  EXPECT_EQ(names.front(), "Synthpop");
  EXPECT_EQ(names.back(), "Blues");
}

}  // namespace
}  // namespace tagrix
