// What every registry, code page and clock port does.
#include <gtest/gtest.h>

#include "contract/small_ports.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kKey = L"Software\\Ostrel Corp.\\Tagrix Contract Test";

class RegistryContract : public testing::Test {
 protected:
  RegistryContract() { DeleteRegistryKey(kKey); }
  ~RegistryContract() override { DeleteRegistryKey(kKey); }
  std::wstring Get(const std::wstring& key, const std::wstring& name) {
    return registry_->GetRegValue(Hive::CurrentUser, key, name);
  }
  void Set(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    registry_->SetRegValue(Hive::CurrentUser, key, name, text);
  }
  std::unique_ptr<Registry> registry_ = MakeRegistry();
};

TEST_F(RegistryContract, KeepsTextsUnderKeysOfAnySpelling) {
  EXPECT_EQ(Get(kKey, L"Pattern"), L"");
  Set(kKey, L"Pattern", L"%1 - %2 \x0416");
  EXPECT_EQ(Get(kKey, L"Pattern"), L"%1 - %2 \x0416");
  EXPECT_EQ(Get(L"SOFTWARE\\ostrel corp.\\TAGRIX contract test", L"pattern"), L"%1 - %2 \x0416");
  Set(L"SOFTWARE\\OSTREL CORP.\\TAGRIX CONTRACT TEST", L"PATTERN", L"");
  EXPECT_EQ(Get(kKey, L"Pattern"), L"");
  EXPECT_EQ(Get(kKey, L"missing"), L"");
  EXPECT_EQ(Get(L"Software\\Ostrel Corp.\\No such key", L"Pattern"), L"");
}

TEST_F(RegistryContract, TextsMayBeLong) {
  const std::wstring text = std::wstring(5000, L'x') + L"end";
  Set(kKey, L"Long", text);
  EXPECT_EQ(Get(kKey, L"Long"), text);
}

TEST_F(RegistryContract, TheHivesAreApart) {
  Set(kKey, L"Name", L"user");
  EXPECT_EQ(registry_->GetRegValue(Hive::LocalMachine, kKey, L"Name"), L"");
}

TEST(CodePageContract, MeetsTextAndBytes) {
  const auto page = MakeCodePage();
  EXPECT_EQ(page->ToBytes(L""), "");
  EXPECT_EQ(page->ToText(""), L"");
  EXPECT_EQ(page->ToBytes(L"Caf\u00E9 \u2019\u20AC"), "Caf\xE9 \x92\x80");
  EXPECT_EQ(page->ToText("Caf\xE9 \x92\x80"), L"Caf\u00E9 \u2019\u20AC");
  EXPECT_EQ(page->ToBytes(L"\u0416a\u4E2D"), "?a?");
  for (int byte = 1; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(page->ToBytes(page->ToText(bytes)), bytes) << byte;
  }
  EXPECT_EQ(page->ToText(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
  EXPECT_TRUE(page->DecimalSeparator() == L'.' || page->DecimalSeparator() == L',');
}

TEST(CodePageContract, KnowsHowNumbersAreWritten) {
  const wchar_t separator = MakeCodePage()->DecimalSeparator();
  EXPECT_TRUE(separator == L'.' || separator == L',' || separator > 127) << static_cast<int>(separator);
}

TEST(ClockContract, TellsAPlausibleYear) {
  const int year = MakeClock()->CurrentYear();
  EXPECT_GE(year, 2000);
  EXPECT_LE(year, 9999);
}

}  // namespace
}  // namespace tagrix
