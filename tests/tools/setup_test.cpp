#include <gtest/gtest.h>

#include "core/publisher.h"
#include "fakes/fakes.h"
#include "tools/setup/setup_mod.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct Setup : testing::Test, TestContext {
  Setup() {
    page.setup_lngcmb.Add(L"English");
    page.setup_lngcmb.Add(L"French");
    page.setup_lngcmb.Select(0);
    PutLanguage(L"english.lf");
    PutLanguage(L"French.lf");
  }
  void PutLanguage(const std::wstring& file) {
    std::string lines;
    for (int n = 0; n < 178; ++n) lines += "000" + codePage.ToBytes(file) + "\r\n";
    files.Put(L"C:\\Tagrix\\" + file, lines);
  }
  void Start() {
    InitSetupPage(page, context, [this] {
      ++retranslated;
      TranslateSetupPage(page, context);
    });
  }
  void Put(const wchar_t* name, const wchar_t* text) { context.settings.Put(name, text); }
  std::wstring Get(const wchar_t* name) { return context.settings.Get(name); }
  // As if the program started again.
  void Reload() { LoadSettings(page, context); }

  SetupPage page;
  int retranslated = 0;
};

TEST_F(Setup, ANewUserGetsTheDefaultsAndOkSavesThem) {
  Start();
  EXPECT_EQ(page.setup_pat_cmb.Text(), L"%1 - %3 - %6 - %2");
  EXPECT_EQ(page.setup_pat_cmb.Count(), 5);
  EXPECT_EQ(page.setup_pls_cmb.Text(), L"%3");
  EXPECT_EQ(page.setup_pattern_lbl.Text(), L"Artist - Album - 01 - Track01");
  EXPECT_EQ(page.setup_testpls_lbl.Text(), L"Album");
  EXPECT_EQ(page.setup_freedb_cmb.Count(), 11);
  EXPECT_EQ(page.setup_freedb_cmb.SelectedIndex(), 0);
  EXPECT_TRUE(page.setup_plsalb_opt.Checked());
  EXPECT_FALSE(page.setup_plsfolder_txt.Enabled() || page.setup_plsbrowse_btn.Enabled());
  EXPECT_TRUE(page.setup_autoupd_chk.Checked());
  EXPECT_FALSE(page.setup_bypass_chk.Checked() || page.setup_proxy_chk.Checked());
  EXPECT_FALSE(page.setup_proxyname_txt.Enabled() || page.setup_proxyport_txt.Enabled());
  EXPECT_EQ(Get(L"Pattern"), L"");  // showing a default does not store it

  page.setup_ok_btn.Click();
  const std::pair<const wchar_t*, const wchar_t*> saved[] = {{L"PlaylistMode", L"0"},
                                                             {L"CGIPath", L"/~cddb/cddb.cgi"},
                                                             {L"HTTPPort", L"80"},
                                                             {L"ProxyPort", L"80"},
                                                             {L"ProxyName", L""},
                                                             {L"UseProxy", L"0"},
                                                             {L"Bypass", L"0"},
                                                             {L"AutoUpd", L"1"},
                                                             {L"Pattern", L"%1 - %3 - %6 - %2"},
                                                             {L"Playlist", L"%3"},
                                                             {L"FreeDBServer", publisher::kFreeDbServers[0].host},
                                                             {L"langue", L"English"}};
  Texts order;
  for (const auto& [name, text] : saved) {
    EXPECT_EQ(Get(name), text);
    order.emplace_back(name);
  }
  EXPECT_EQ(registry.written, order);
  EXPECT_EQ(retranslated, 1);
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Setup, FlagsAreReadExactly) {
  Start();
  for (const auto& [text, autoUpdate, other] :
       {std::tuple(L"", true, false), std::tuple(L"yes", true, false), std::tuple(L"0", false, false),
        std::tuple(L" 0", true, false), std::tuple(L"1", true, true), std::tuple(L"true", true, false),
        std::tuple(L"1 ", true, false)}) {
    for (const wchar_t* name : {L"AutoUpd", L"Bypass", L"UseProxy"}) Put(name, text);
    Reload();
    EXPECT_EQ(page.setup_autoupd_chk.Checked(), autoUpdate) << Trim(text).size();
    EXPECT_EQ(page.setup_bypass_chk.Checked(), other);
    EXPECT_EQ(page.setup_proxy_chk.Checked(), other);
    EXPECT_EQ(page.setup_proxyname_txt.Enabled(), other);
  }
}

TEST_F(Setup, PortsAreNumbersAboveZero) {
  Start();
  for (const auto& [stored, shown, saved] :
       {std::tuple(L"letters", L"80", L"80"), std::tuple(L"-5", L"80", L"80"),
        std::tuple(L" 8080x ", L"8080x", L"8080"), std::tuple(L"0", L"80", L"80")}) {
    Put(L"HTTPPort", stored);
    Put(L"ProxyPort", stored);
    Reload();
    EXPECT_EQ(page.setup_httpport_txt.Text(), shown);
    EXPECT_EQ(page.setup_proxyport_txt.Text(), shown);
    page.setup_ok_btn.Click();
    EXPECT_EQ(Get(L"HTTPPort"), saved);
  }
  page.setup_httpport_txt.Type(L"0");
  page.setup_proxyport_txt.SetText(L" none ");
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"HTTPPort"), L"80");
  EXPECT_EQ(Get(L"ProxyPort"), L"none");  // saved as typed, shown as 80 again
  Reload();
  EXPECT_EQ(page.setup_proxyport_txt.Text(), L"80");
}

TEST_F(Setup, ThePlaylistModeHoldsTheFolderWhateverTheChoice) {
  files.AddFolder(L"C:\\Lists");
  files.Put(L"C:\\file");
  Start();
  for (const auto& [stored, option, folder] :
       {std::tuple(L"0C:\\Lists", &page.setup_plsalb_opt, L"C:\\Lists"),
        std::tuple(L"1", &page.setup_plsparent_opt, L""),
        std::tuple(L"2C:\\Lists", &page.setup_plsspec_opt, L"C:\\Lists"),
        std::tuple(L"2C:\\gone", &page.setup_plsspec_opt, L""), std::tuple(L"2C:\\file", &page.setup_plsspec_opt, L""),
        std::tuple(L"2C:", &page.setup_plsspec_opt, L""),
        std::tuple(L"7C:\\Lists", &page.setup_plsalb_opt, L"C:\\Lists")}) {
    Put(L"PlaylistMode", stored);
    page.setup_plsfolder_txt.SetText(L"");
    Reload();
    EXPECT_TRUE(option->Checked());
    EXPECT_EQ(page.setup_plsfolder_txt.Text(), folder);
    EXPECT_EQ(page.setup_plsbrowse_btn.Enabled(), page.setup_plsspec_opt.Checked());
  }
  page.setup_plsspec_opt.Click();
  context.settings.Put(L"LastDir", L"C:\\Lists");
  prompts.dialogs.push_back([](Form& form) { Find<Button>(form.layout, "ok_btn").Click(); });
  page.setup_plsbrowse_btn.Click();
  page.setup_plsparent_opt.Click();
  EXPECT_FALSE(page.setup_plsfolder_txt.Enabled());
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"PlaylistMode"), L"1C:\\Lists");
}

TEST_F(Setup, AProxyNeedsAName) {
  Start();
  page.setup_proxy_chk.Click();
  EXPECT_TRUE(page.setup_proxyname_txt.Enabled() && page.setup_proxyport_txt.Enabled());
  page.setup_proxyname_txt.Type(L"  ");
  page.setup_bypass_chk.Click();
  page.setup_ok_btn.Click();
  EXPECT_EQ(prompts.messages, Texts{L"<141>"});
  EXPECT_TRUE(registry.written.empty());
  page.setup_proxyname_txt.Type(L" proxy ");
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"ProxyName") + Get(L"UseProxy") + Get(L"Bypass"), L"proxy11");
}

TEST_F(Setup, APatternTypedByHandIsListedOnce) {
  Start();
  page.setup_pat_cmb.Type(L" %2/%4 by %1 ");
  EXPECT_EQ(page.setup_pattern_lbl.Text(), L" Track012004 by Artist ");
  page.setup_pls_cmb.Choose(1);
  EXPECT_EQ(page.setup_testpls_lbl.Text(), L"Artist - Album");
  page.setup_ok_btn.Click();
  page.setup_ok_btn.Click();
  for (int start = 0; start < 2; ++start) {
    Reload();
    EXPECT_EQ(page.setup_pat_cmb.Count(), 6);
    EXPECT_EQ(page.setup_pat_cmb.Text(), L"%2/%4 by %1");
    EXPECT_EQ(page.setup_pls_cmb.Count(), 2);
  }
}

TEST_F(Setup, TheServerIsFoundByItsHost) {
  const std::wstring second = publisher::kFreeDbServers[1].host;
  Put(L"FreeDBServer", second.c_str());
  Start();
  EXPECT_EQ(page.setup_freedb_cmb.SelectedIndex(), 1);
  page.setup_freedb_cmb.Choose(10);
  page.setup_ok_btn.Click();
  EXPECT_EQ(Get(L"FreeDBServer"), publisher::kFreeDbServers[10].host);
  Put(L"FreeDBServer", L"gone.example");
  Reload();
  EXPECT_EQ(page.setup_freedb_cmb.SelectedIndex(), 0);
}

TEST_F(Setup, TheLanguageChangesAtOnce) {
  Start();
  page.setup_lngcmb.Choose(1);
  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_proxy_chk.Text(), L"French.lf");
  EXPECT_EQ(page.setup_patterndef_lbl[1].Text(), L"%4 : French.lf\r\n%5 : French.lf\r\n%6 : French.lf");
  EXPECT_EQ(Get(L"langue"), L"French");

  files.Put(L"C:\\Tagrix\\French.lf", "000too short\r\n");  // English takes over
  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_lngcmb.Text(), L"English");
  page.setup_lngcmb.Choose(1);
  files.Delete(L"C:\\Tagrix\\French.lf");  // the texts stay
  page.setup_ok_btn.Click();
  EXPECT_EQ(page.setup_proxy_chk.Text(), L"english.lf");
}

}  // namespace
}  // namespace tagrix
