#include <gtest/gtest.h>

#include "core/publisher.h"
#include "dialogs/fixtures.h"
#include "tools/setup/setup_mod.h"

namespace tagrix {
namespace {

struct Setup : testing::Test, TestContext {
  Setup() {
    for (const std::wstring language : {L"English", L"French"}) {
      page.setup_lngcmb.Add(language);
      std::string lines;
      for (int n = 0; n < 178; ++n) lines += "000" + codePage.ToBytes(language) + "\r\n";
      files.Put(L"C:\\Tagrix\\" + language + L".lf", lines);
    }
    page.setup_lngcmb.Select(0);
    files.AddFolder(L"C:\\Lists");
    InitSetupPage(page, context, [this] { TranslateSetupPage(page, context); });
  }
  // As if the program started again with these settings.
  void Reload(std::initializer_list<const wchar_t*> names, const wchar_t* text) {
    for (const wchar_t* name : names) context.settings.Put(name, text);
    LoadSettings(page, context);
  }
  std::wstring Get(const wchar_t* name) { return context.settings.Get(name); }
  SetupPage page;
};

TEST_F(Setup, ANewUserGetsTheDefaultsAndOkSavesThem) {
  EXPECT_EQ(page.setup_pattern_lbl.Text(), L"Artist - Album - 01 - Track01");
  EXPECT_EQ(page.setup_freedb_cmb.Count(), 11);
  page.setup_proxy_chk.Click();
  page.setup_proxyname_txt.Type(L"  ");  // a proxy needs a name
  page.setup_ok_btn.Click();
  EXPECT_EQ(prompts.messages, std::vector<std::wstring>{L"<141>"});
  EXPECT_TRUE(registry.written.empty());  // showing a default does not store it, either
  page.setup_proxyname_txt.Type(L" proxy ");
  page.setup_ok_btn.Click();
  std::wstring saved;
  for (const std::wstring& name : registry.written) saved += name + L"=" + Get(name.c_str()) + L"|";
  EXPECT_EQ(saved, std::wstring(L"PlaylistMode=0|CGIPath=/~cddb/cddb.cgi|HTTPPort=80|ProxyPort=80|ProxyName=proxy|") +
                       L"UseProxy=1|Bypass=0|AutoUpd=1|Pattern=%1 - %3 - %6 - %2|Playlist=%3|FreeDBServer=" +
                       publisher::kFreeDbServers[0].host + L"|langue=English|");
}

TEST_F(Setup, FlagsAreReadExactlyAndPortsAreNumbersAboveZero) {
  context.settings.Put(L"ProxyName", L"proxy");
  const struct {
    const wchar_t *stored, *flags, *port, *saved;
  } cases[] = {{L"yes", L"100", L"80", L"80"}, {L"0", L"000", L"80", L"80"},
               {L" 0", L"100", L"80", L"80"},  {L"1", L"111", L"1", L"1"},
               {L"1 ", L"100", L"1", L"1"},    {L"-5", L"100", L"80", L"80"},
               {L"", L"100", L"80", L"80"},    {L" 8080x ", L"100", L"8080x", L"8080"}};
  for (const auto& expected : cases) {
    Reload({L"AutoUpd", L"Bypass", L"UseProxy", L"HTTPPort", L"ProxyPort"}, expected.stored);
    EXPECT_EQ(page.setup_httpport_txt.Text() + page.setup_proxyport_txt.Text(),
              std::wstring(expected.port) + expected.port);
    EXPECT_EQ(page.setup_proxyname_txt.Enabled(), page.setup_proxy_chk.Checked());
    page.setup_ok_btn.Click();
    EXPECT_EQ(Get(L"AutoUpd") + Get(L"Bypass") + Get(L"UseProxy"), expected.flags);
    EXPECT_EQ(Get(L"HTTPPort"), expected.saved);
  }
  page.setup_httpport_txt.Type(L"0");
  page.setup_proxyport_txt.SetText(L" none ");
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"HTTPPort") + Get(L"ProxyPort"), L"80none");  // saved as typed, shown as 80 again
  Reload({L"HTTPPort"}, L"8080");
  EXPECT_EQ(page.setup_proxyport_txt.Text(), L"80");
}

TEST_F(Setup, ThePlaylistModeHoldsTheFolderWhateverTheChoice) {
  for (const auto& [stored, option, folder] : {std::tuple(L"0C:\\Lists", &page.setup_plsalb_opt, L"C:\\Lists"),
                                               {L"1", &page.setup_plsparent_opt, L""},
                                               {L"2C:\\Lists", &page.setup_plsspec_opt, L"C:\\Lists"},
                                               {L"2C:\\gone", &page.setup_plsspec_opt, L""},
                                               {L"2C:", &page.setup_plsspec_opt, L""},
                                               {L"7C:\\Lists", &page.setup_plsalb_opt, L"C:\\Lists"}}) {
    page.setup_plsfolder_txt.SetText(L"");
    Reload({L"PlaylistMode"}, stored);
    EXPECT_TRUE(option->Checked());
    EXPECT_EQ(page.setup_plsfolder_txt.Text(), folder);
    EXPECT_EQ(page.setup_plsbrowse_btn.Enabled(), page.setup_plsspec_opt.Checked());
  }
  page.setup_plsspec_opt.Click();
  context.settings.Put(L"LastDir", L"C:\\Lists");
  prompts.dialogs.emplace_back(PressOk);
  page.setup_plsbrowse_btn.Click();
  page.setup_plsparent_opt.Click();
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"PlaylistMode"), L"1C:\\Lists");
}

TEST_F(Setup, PatternsAreListedOnceAndTheServerIsFoundByItsHost) {
  page.setup_pat_cmb.Type(L" %2/%4 by %1 ");
  EXPECT_EQ(page.setup_pattern_lbl.Text(), L" Track012004 by Artist ");
  page.setup_pls_cmb.Choose(1);
  EXPECT_EQ(page.setup_testpls_lbl.Text(), L"Artist - Album");
  page.setup_freedb_cmb.Choose(10);
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"FreeDBServer"), publisher::kFreeDbServers[10].host);
  for (const auto& [host, row] : {std::pair(publisher::kFreeDbServers[1].host, 1), {L"gone.example", 0}}) {
    Reload({L"FreeDBServer"}, host);
    EXPECT_EQ(page.setup_freedb_cmb.SelectedIndex(), row);
    EXPECT_EQ(page.setup_pat_cmb.Text(), L"%2/%4 by %1");
    EXPECT_EQ(page.setup_pat_cmb.Count() * 10 + page.setup_pls_cmb.Count(), 62);
  }
}

TEST_F(Setup, TheLanguageChangesAtOnce) {
  page.setup_lngcmb.Choose(1);
  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_patterndef_lbl[1].Text(), L"%4 : French\r\n%5 : French\r\n%6 : French");
  EXPECT_EQ(Get(L"langue"), L"French");
  files.Delete(L"C:\\Tagrix\\English.lf");  // the texts and the setting stay
  page.setup_lngcmb.Choose(0);
  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_proxy_chk.Text() + Get(L"langue"), L"FrenchFrench");
}

}  // namespace
}  // namespace tagrix
