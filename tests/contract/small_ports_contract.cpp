// What every registry and code page port does.
#include <vector>

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
  EXPECT_EQ(page.ToBytes(L"Caf\u00E9 \u2019\u20AC"), "Caf\xE9 \x92\x80");
  EXPECT_EQ(page.ToText("Caf\xE9 \x92\x80"), L"Caf\u00E9 \u2019\u20AC");
  EXPECT_EQ(page.ToBytes(L"\u0416a\u4E2D"), "?a?");
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(page.ToBytes(page.ToText(bytes)), bytes) << byte;
  }
  EXPECT_TRUE(page.DecimalSeparator() == L'.' || page.DecimalSeparator() == L',');
}

}  // namespace
}  // namespace tagrix
