#include "update/update_rules.h"

#include <gtest/gtest.h>

namespace tagrix {
namespace {

TEST(Profile, IsReadAsTheSystemReadsIt) {
  constexpr std::wstring_view kText =
      L"build=1\r\n; comment\r\n[other]\nbuild=2\r\n[ TAGRIX ] x\r\n ;build=3\r\nnonsense\r\n\tBuild = \t\"4\" \r\n"
      L"build=5\r\nPath=/a=b\r\nempty=\r\n[tagrix]\r\nlate=6";
  EXPECT_EQ(ProfileValue(kText, L"Tagrix", L"build"), L"4");
  EXPECT_EQ(ProfileValue(kText, L"Tagrix", L"path"), L"/a=b");
  for (const wchar_t* missing : {L"empty", L"late", L"nonsense"}) {
    EXPECT_EQ(ProfileValue(kText, L"Tagrix", missing), L"");
  }
}

TEST(FileNamesFromTheNet, StayInTheirFolder) {
  EXPECT_TRUE(IsBareFileName(L"tagrix-1.2 setup.exe"));
  for (const wchar_t* name : {L"", L".", L"..", L"a..exe", L"a/b.exe", L"a\\b.exe", L"C:a.exe", L"a.exe:s", L"a?.exe",
                              L"a*.exe", L"a\".exe", L"a.exe.", L"a.exe ", L"a\tb.exe", L"con.exe"}) {
    EXPECT_FALSE(IsBareFileName(name)) << std::wstring(name).size();
  }
}

TEST(Sizes, AreShownInStepsOf1024) {
  const struct {
    std::uint64_t bytes;
    const wchar_t* text;
  } cases[] = {{1023, L"1023 bytes"}, {1024, L"1.00 Kb"}, {1024 * 1024 - 1, L"1023.99 Kb"}, {5ull << 30, L"5.00 Gb"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(DisplaySize(bytes), text);
  EXPECT_EQ(DownloadProgress(1024, 3072), L"1.00 Kb of 3.00 Kb [33%]");
  EXPECT_EQ(DownloadProgress(1024, 0), L"1.00 Kb");
  EXPECT_EQ(DownloadPercent(5, 4), 100);
}

}  // namespace
}  // namespace tagrix
