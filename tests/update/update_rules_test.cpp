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
  for (const wchar_t* missing : {L"empty", L"late", L"nonsense", L";build"}) {
    EXPECT_EQ(ProfileValue(kText, L"Tagrix", missing), L"");
  }
  for (const wchar_t* rubbish : {L"", L"[", L"[Tagrix", L"[Tagrix]\nbuild", L"[Tagrix]\n="}) {
    EXPECT_EQ(ProfileValue(rubbish, L"Tagrix", L"build"), L"");
  }
}

TEST(FileNamesFromTheNet, StayInTheirFolder) {
  EXPECT_TRUE(IsBareFileName(L"tagrix-1.2 setup.exe"));
  for (const wchar_t* name : {L"", L".", L"..", L"a..exe", L"a/b.exe", L"a\\b.exe", L"C:a.exe", L"a.exe:s", L"a?.exe",
                              L"a*.exe", L"a\".exe", L"a.exe.", L"a.exe ", L"a\tb.exe"}) {
    EXPECT_FALSE(IsBareFileName(name)) << std::wstring(name).size();
  }
}

TEST(Sizes, AreShownInStepsOf1024) {
  EXPECT_EQ(DisplaySize(0), L"0 bytes");
  EXPECT_EQ(DisplaySize(1023), L"1023 bytes");
  EXPECT_EQ(DisplaySize(1024), L"1.00 Kb");
  EXPECT_EQ(DisplaySize(1024 * 1024 - 1), L"1023.99 Kb");
  EXPECT_EQ(DisplaySize(3 * 1024 * 1024 / 2), L"1.50 Mb");
  EXPECT_EQ(DisplaySize(5ull << 30), L"5.00 Gb");
  EXPECT_EQ(DisplaySize(~0ull), L"17179869183.99 Gb");
}

TEST(Progress, HoldsWhatTheServerSays) {
  EXPECT_EQ(DownloadProgress(1024, 3072), L"1.00 Kb of 3.00 Kb [33%]");
  EXPECT_EQ(DownloadProgress(1024, 0), L"1.00 Kb");
  EXPECT_EQ(DownloadPercent(5, 4), 100);
  EXPECT_EQ(DownloadPercent(~0ull, ~0ull), 100);
}

}  // namespace
}  // namespace tagrix
