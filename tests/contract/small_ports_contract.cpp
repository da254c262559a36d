// What every registry and code page port does, and the letter case of Windows.
#include <vector>

#include "base/letter_case.h"
#include "contract/cases.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kKey = L"Software\\Ostrel Corp.\\Tagrix Contract Test";

TEST(RegistryContract, KeepsTextsUnderKeysOfAnySpelling) {
  DeleteRegistryKey(kKey);
  RegistryCase registry;
  const auto get = [&](const wchar_t* key, const wchar_t* name) {
    return registry.GetRegValue(Hive::CurrentUser, key, name);
  };
  EXPECT_EQ(get(kKey, L"Pattern"), L"");
  for (const std::wstring& text :
       {std::wstring(L"%1 - %2 \x0416"), std::wstring(5000, L'x') + L"end", std::wstring()}) {
    registry.SetRegValue(Hive::CurrentUser, L"SOFTWARE\\ostrel corp.\\TAGRIX contract test", L"PATTERN", text);
    EXPECT_EQ(get(kKey, L"Pattern"), text);
    EXPECT_EQ(registry.GetRegValue(Hive::LocalMachine, kKey, L"Pattern"), L"");
  }
  EXPECT_EQ(get(kKey, L"missing"), L"");
  EXPECT_EQ(get(L"Software\\Ostrel Corp.\\No such key", L"Pattern"), L"");
  DeleteRegistryKey(kKey);
}

#ifdef _WIN32

TEST(RegistryContract, AValueThatIsNoTextIsEmpty) {
  WinRegistry registry;
  const std::vector<char> letters(5001, 'x');
  for (const DWORD bytes : {3U, 513U, 5001U}) {
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Broken", REG_SZ, letters.data(), bytes), ERROR_SUCCESS);
    EXPECT_EQ(registry.GetRegValue(Hive::CurrentUser, kKey, L"Broken"), L"") << bytes << " bytes";
  }
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Broken", REG_BINARY, letters.data(), 10), ERROR_SUCCESS);
  EXPECT_EQ(registry.GetRegValue(Hive::CurrentUser, kKey, L"Broken"), L"");
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, L"Unended", REG_SZ, letters.data(), 5000), ERROR_SUCCESS);
  EXPECT_EQ(registry.GetRegValue(Hive::CurrentUser, kKey, L"Unended"), std::wstring(2500, L'\x7878'));
  DeleteRegistryKey(kKey);
}

#endif

TEST(CodePageContract, MeetsTextAndBytes) {
  CodePageCase page;
  EXPECT_EQ(page.ToBytes(L"Caf\u00E9"), "Caf\xE9");
  EXPECT_EQ(page.ToText("Caf\xE9"), L"Caf\u00E9");
#ifdef _WIN32
  EXPECT_EQ(page.ToBytes(L"\u2019\u20AC"), "\x92\x80");
  EXPECT_EQ(page.ToText("\x92\x80"), L"\u2019\u20AC");
#endif
  EXPECT_EQ(page.ToBytes(L"\u0416a\u4E2D"), "?a?");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(page.ToBytes(page.ToText(bytes)), bytes) << byte;
  }
  EXPECT_TRUE(page.DecimalSeparator() == L'.' || page.DecimalSeparator() == L',');
}

TEST(ShellContract, OpensAndShowsWhatIsThereAndCopiesTexts) {
  ShellCase test;
  const std::wstring name = L"of the 1st album.ini", path = test.folder + L"\\" + name;
  for (const std::wstring& bad : {std::wstring(), name, path}) {
    EXPECT_FALSE(test.shell.OpenFile(bad) || test.shell.ShowInFolder(bad));
  }
  test.files.Create(path);
  EXPECT_TRUE(test.shell.OpenFile(path) && test.shell.ShowInFolder(path));
  EXPECT_TRUE(Until(
      test.events, [&] { return test.Opened(name); }, 30'000));
  EXPECT_TRUE(Until(
      test.events, [&] { return test.Shown(); }, 30'000));
  for (const wchar_t* text : {L"01 - Caf\u00E9 \x0416.mp3\r\n02.mp3", L"02"}) {
    test.shell.CopyText(text);
    EXPECT_EQ(test.Copied(), text);
  }
}

#ifdef _WIN32

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

#endif

}  // namespace
}  // namespace tagrix
