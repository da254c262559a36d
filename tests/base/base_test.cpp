// The rules for texts: numbers and times in them, letter case, names for files, paths.
#include <gtest/gtest.h>

#include <map>

#include "base/file_names.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/times.h"
#include "base/utf8.h"

namespace tagrix {
namespace {

TEST(Text, ReadsTheNumberThatATextBeginsWith) {
  const struct {
    const wchar_t* text;
    double number;
  } cases[] = {{L"8080x", 8080}, {L"  -5", -5}, {L"12.5 s", 12.5}, {L"+7", 7}, {L"", 0}, {L"+-3", 0}, {L"inf", 0}};
  for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << Trim(text).size();
  EXPECT_EQ(LeadingInteger(L"2.5"), 2);
  EXPECT_EQ(LeadingInteger(L"3.5"), 4);
  EXPECT_EQ(LeadingInteger(L"99999999999"), 2147483647);
}

TEST(Text, ValuesThatHoldAPlaceholderArePutInOnce) {
  EXPECT_EQ(Replace(L"%%1%% and %%1%%", L"%%1%%", L"%%1%%!"), L"%%1%%! and %%1%%!");
}

TEST(Text, YearsAreFourDigitsAndDontBeginWithZero) {
  EXPECT_TRUE(IsYear(L"1973"));
  for (const wchar_t* text : {L"03", L"0073", L"19x3", L"1973 "}) EXPECT_FALSE(IsYear(text));
}

TEST(Text, NumbersAndTimesAreRounded) {
  EXPECT_EQ(RoundToInteger(-1e300), -2147483647 - 1);
  EXPECT_EQ(Decimals(5.5599, 2, L','), L"5,56");
  EXPECT_EQ(Decimals(-1.05, 1, L'.'), L"-1.1");
  EXPECT_EQ(Decimals(-0.04, 1, L'.'), L"0.0");
  EXPECT_EQ(MinutesAndSeconds(0), L"");
  EXPECT_EQ(MinutesAndSeconds(59499), L"0:59");
  EXPECT_EQ(MinutesAndSeconds(59500), L"1:00");
  EXPECT_EQ(MinutesAndSeconds(FramesToMilliseconds(75 * 6123)), L"102:03");
}

TEST(Utf8, IsReadStrictlyAndWrittenWhole) {
  for (const wchar_t* text : {L"", L"a\x7F\u0080\u07FF\u0800\uFFFF", L"\U00010000\U0010FFFF", L"\uD7FF\uE000"}) {
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  }
  EXPECT_EQ(ToUtf8(L"é\U0001D11E"), "\xC3\xA9\xF0\x9D\x84\x9E");
  // Surrogate pairs, as Windows keeps what lies beyond 16 bits.
  EXPECT_EQ(ToUtf8(std::wstring{wchar_t{0xD834}, wchar_t{0xDD1E}, wchar_t{0xD834}, L'x', wchar_t{0xDD1E}}),
            "\xF0\x9D\x84\x9E\xEF\xBF\xBDx\xEF\xBF\xBD");
  for (const char* bytes : {"\x80", "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xC3", "\xE2\x82", "\xE2\x82x", "\xFF"}) {
    EXPECT_FALSE(FromUtf8(bytes)) << bytes;
  }
}

TEST(FileNames, LoseTheForbiddenCharactersAndGiveWayToDevices) {
  EXPECT_EQ(CleanAndTrimFileName(L" \\/:?*\"<>| a  b | "), L"a  b");
  EXPECT_EQ(CleanFileName(std::wstring(L" a:\0\x1F\r\n ", 8)), L" a ");
  // The underscore is what keeps a name from being a device's.
  for (const wchar_t* safe : {L"Con_", L"nul_.tar.gz", L"COM0_.mp3", L"lpt\u00B2_.mp3", L"conin$_", L"prn _.mp3",
                              L"Console.mp3", L"com10.mp3"}) {
    EXPECT_EQ(SafeFileName(Replace(safe, L"_", L"")), safe);
  }
}

TEST(Paths, FullPathsAndRootsAreTold) {
  for (const wchar_t* full : {L"C:\\", L"\\\\server\\", L"\\\\server\\share\\a", L"\\\\\\share"}) {
    EXPECT_TRUE(IsFullPath(full) && !IsRoot(full)) << testing::PrintToString(full);
  }
  EXPECT_TRUE(IsFullPath(L"\\\\server\\share") && IsRoot(L"\\\\server\\share"));
  EXPECT_TRUE(!IsFullPath(L"C:") && IsRoot(L"C:"));
  for (const wchar_t* neither : {L"", L"C:a.exe", L"\\a.exe"}) EXPECT_FALSE(IsFullPath(neither) || IsRoot(neither));
}

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

}  // namespace
}  // namespace tagrix
