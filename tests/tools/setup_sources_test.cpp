#include <gtest/gtest.h>

#include "base/publisher.h"
#include "dialogs/fixtures.h"
#include "freedb/search_page.h"
#include "tools/setup/setup_mod.h"

namespace tagrix {
namespace {

TEST(SetupOfSources, IsSavedAndUsedAsItIsMeant) {
  TestContext test;
  SetupPage page;
  Settings& settings = test.context.settings;
  page.setup_lngcmb.Add(L"English");
  InitSetupPage(page, test.context, [] {});
  EXPECT_EQ(page.setup_site_txt.Text(), publisher::kFreeDbWebSite);
  EXPECT_EQ(page.setup_musicbrainz_txt.Text(), L"musicbrainz.org");
  EXPECT_EQ(page.setup_contact_txt.Text(), L"");
  page.setup_contact_txt.Type(L" jo@home.example ");
  page.setup_musicbrainz_txt.Type(L"");
  const struct {
    const wchar_t *typed, *site;
  } sites[] = {{L"mirror.example/", L"http://mirror.example"},
               {L" http://mirror.example/freedb// ", L"http://mirror.example/freedb"},
               {L"", publisher::kFreeDbWebSite}};
  for (const auto& [typed, site] : sites) {
    page.setup_site_txt.Type(typed);
    page.setup_ok_btn.Click();
    EXPECT_EQ(FreeDbSite(settings), site);
  }
  LoadSettings(page, test.context);
  EXPECT_EQ(page.setup_contact_txt.Text(), L"jo@home.example");
  EXPECT_EQ(page.setup_musicbrainz_txt.Text(), L"musicbrainz.org");
}

}  // namespace
}  // namespace tagrix
