#include <gtest/gtest.h>

#include "base/publisher.h"
#include "dialogs/fixtures.h"
#include "freedb/search_page.h"
#include "tools/setup/setup_mod.h"

namespace tagrix {
namespace {

struct Setup : testing::Test, TestContext {
  Setup() {
    for (const std::wstring language : {L"English", L"French"}) {
      page.setup_lngcmb.Add(language);
      files.Put(L"C:\\Tagrix\\" + language + L".lf", LanguageFile(178, codePage.ToBytes(language)));
    }
    page.setup_lngcmb.Select(0);
    for (const wchar_t* folder : {L"C:\\Lists", L"C:\\m"}) files.AddFolder(folder);
    InitSetupPage(page, context, [this] { TranslateSetupPage(page, context); });
  }
  // As if the program started again with these settings.
  void Reload(const Texts& names, const wchar_t* text) {
    for (const std::wstring& name : names) registry.SetRegValue(Hive::CurrentUser, kSettingsKey, name, text);
    LoadSettings(page, context);
  }
  std::wstring Get(const std::wstring& name) { return registry.GetRegValue(Hive::CurrentUser, kSettingsKey, name); }
  SetupPage page;
};

TEST_F(Setup, ANewUserGetsTheDefaultsAndOkSavesThem) {
  page.setup_proxy_chk.Click();
  page.setup_proxyname_txt.Type(L"  ");  // a proxy needs a name
  page.setup_ok_btn.Click();
  EXPECT_EQ(prompts.messages, Texts{L"<141>"});
  EXPECT_TRUE(registry.written.empty());  // showing a default does not store it, either
  page.setup_proxyname_txt.Type(L" proxy ");
  page.setup_ok_btn.Click();
  Texts saved;
  for (const std::wstring& name : registry.written) saved.push_back(name + L"=" + Get(name));
  const std::wstring server = std::wstring(L"FreeDBServer=") + publisher::kFreeDbServers[0].host;
  EXPECT_EQ(saved, (Texts{L"PlaylistMode=0", L"CGIPath=/~cddb/cddb.cgi", L"HTTPPort=80", L"ProxyPort=80",
                          L"ProxyName=proxy", L"UseProxy=1", L"Bypass=0", L"AutoUpd=1", L"Pattern=%1 - %3 - %6 - %2",
                          L"Playlist=%3", server, L"FreeDBSite=http://www.freedb.org", L"Contact=",
                          L"MusicBrainzServer=musicbrainz.org", L"TagStyle=", L"langue=English"}));
}

TEST_F(Setup, FlagsAreReadExactlyAndPortsAreNumbersAboveZero) {
  for (const auto& [stored, automatic, others] :
       {std::tuple(L"yes", true, false), {L" 0", true, false}, {L"1", true, true}, {L"0", false, false}}) {
    Reload({L"AutoUpd", L"Bypass", L"UseProxy"}, stored);
    EXPECT_EQ(page.setup_autoupd_chk.Checked(), automatic) << stored;
    EXPECT_TRUE(page.setup_bypass_chk.Checked() == others && page.setup_proxyname_txt.Enabled() == others) << stored;
  }
  for (const auto& [stored, shown, saved] : {std::tuple(L"0", L"80", L"80"), {L" 8080x ", L"8080x", L"8080"}}) {
    Reload({L"HTTPPort", L"ProxyPort"}, stored);
    page.setup_ok_btn.Click();
    EXPECT_EQ(Get(L"HTTPPort"), saved);
    EXPECT_EQ(Get(L"ProxyPort"), shown);  // as typed
  }
}

TEST_F(Setup, ThePlaylistModeHoldsTheFolderWhateverTheChoice) {
  for (const auto& [stored, place, folder] : {std::tuple(L"1", 1u, L""),
                                              {L"2C:\\Lists", 2u, L"C:\\Lists"},
                                              {L"2C:\\gone", 2u, L""},
                                              {L"7C:\\Lists", 0u, L"C:\\Lists"}}) {
    page.setup_plsfolder_txt.SetText(L"");
    Reload({L"PlaylistMode"}, stored);
    EXPECT_TRUE(page.playlistPlace[place]->Checked()) << stored;
    EXPECT_EQ(page.setup_plsfolder_txt.Text(), folder);
    EXPECT_EQ(page.setup_plsbrowse_btn.Enabled(), page.setup_plsspec_opt.Checked());
  }
  for (const wchar_t* style : {L"classic", L"standard", L""}) {
    context.settings.Put(setting::kTagStyle, style);
    LoadTagStyle(page, context);
    context.settings.Put(setting::kTagStyle, L"other");
    page.setup_ok_btn.Click();
    EXPECT_EQ(Get(L"TagStyle"), style);
  }
  prompts.dialogs.emplace_back(Pick(L"C:\\m"));
  page.setup_plsspec_opt.Click();
  page.setup_plsbrowse_btn.Click();
  page.setup_plsparent_opt.Click();
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"PlaylistMode"), L"1C:\\m");
}

TEST_F(Setup, PatternsAreListedOnceAndTheServerIsFoundByItsHost) {
  page.setup_pat_cmb.Type(L" %2 by %1 ");
  EXPECT_EQ(page.setup_pattern_lbl.Text(), L" Track01 by Artist ");
  page.setup_pls_cmb.Type(L"%1 %3 %6%2 %4 %5");
  EXPECT_EQ(page.setup_testpls_lbl.Text(), L"Artist Album 00 2004 Genre");
  page.setup_freedb_cmb.Choose(10);
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"FreeDBServer"), publisher::kFreeDbServers[10].host);
  for (const auto& [host, row] : {std::pair(publisher::kFreeDbServers[1].host, 1), {L"gone.example", 0}}) {
    Reload({L"FreeDBServer"}, host);
    EXPECT_EQ(page.setup_freedb_cmb.SelectedIndex(), row);
    EXPECT_EQ(page.setup_pat_cmb.Text(), L"%2 by %1");
    EXPECT_EQ(page.setup_pat_cmb.Count(), 6);
  }
}

TEST_F(Setup, TheSourcesAreSavedAndUsedAsTheyAreMeant) {
  EXPECT_EQ(page.setup_site_txt.Text(), publisher::kFreeDbWebSite);
  page.setup_contact_txt.Type(L" jo@home.example ");
  page.setup_musicbrainz_txt.Type(L"");
  for (const auto& [typed, site] : {std::pair(L"mirror.example/", L"http://mirror.example"),
                                    {L" http://mirror.example/freedb// ", L"http://mirror.example/freedb"},
                                    {L"", publisher::kFreeDbWebSite}}) {
    page.setup_site_txt.Type(typed);
    page.setup_ok_btn.Click();
    EXPECT_EQ(FreeDbSite(context.settings), site);
  }
  LoadSettings(page, context);
  EXPECT_EQ(page.setup_contact_txt.Text(), L"jo@home.example");
  EXPECT_EQ(page.setup_musicbrainz_txt.Text(), L"musicbrainz.org");
}

TEST_F(Setup, TheLanguageChangesAtOnceOrStaysWhenItsFileCannotBeRead) {
  page.setup_lngcmb.Choose(1);
  page.setup_bypass_chk.Click();
  files.FailCall(1);
  page.setup_ok_btn.Click();
  EXPECT_EQ(prompts.messages, Texts{L"<231>\r\nC:\\Tagrix\\French.lf\r\nWindows would refuse that."});
  EXPECT_EQ(page.setup_proxy_chk.Text(), L"<133>");
  EXPECT_EQ(Get(L"Bypass"), L"1");
  EXPECT_EQ(Get(L"langue"), L"");

  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_proxy_chk.Text(), L"French133");
  EXPECT_EQ(Get(L"langue"), L"French");
}

}  // namespace
}  // namespace tagrix
