#include "app/main_window.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "core/long_work.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

std::string Lines(int count, const std::string& word) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "000" + word + std::to_string(i) + "\r\n";
  return text;
}

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    test.context.language.lng_lst.clear();
    test.files.Put(L"C:\\Tagrix\\english.lf", Lines(178, "en&"));
    test.files.AddFolder(L"C:\\Tagrix\\skin");
    test.files.Put(L"C:\\Tagrix\\styles.dat", Lines(148, "style"));
  }
  TestContext test;
  MainWindow window{test.context};
};

TEST_F(MainWindowTest, ANewUserGetsEnglishAndTheAlbumPageAndOnlyTheAboutButtonMakesASound) {
  ASSERT_TRUE(window.StartUp());
  EXPECT_TRUE(test.prompts.messages.empty());
  EXPECT_EQ(test.context.page_btn[0].Text(), L"en&&175");
  for (std::size_t i = 0; i < window.workfrm.size(); ++i) EXPECT_EQ(window.workfrm[i].Visible(), i == 0);

  for (Button& button : test.context.page_btn) button.Click();
  EXPECT_EQ(test.shell.sounds, Texts{L"C:\\Tagrix\\OCsound.wav"});
  EXPECT_TRUE(window.workfrm[6].Visible());
}

TEST_F(MainWindowTest, TheLanguageSettingIsTrimmedAndMustNameAFile) {
  test.files.Put(L"C:\\Tagrix\\Klingon.lf", Lines(178, "tlh"));
  test.context.settings.Put(setting::kLanguage, L"  Klingon ");
  ASSERT_TRUE(window.StartUp());
  EXPECT_EQ(test.context.Text(32), L"tlh32");
  EXPECT_EQ(window.setup.setup_lngcmb.Text(), L"Klingon");

  test.context.settings.Put(setting::kLanguage, L"Klingon");  // held open by another program
  test.files.beforeCall = [&](const std::wstring& path) {
    if (path.ends_with(L"Klingon.lf")) test.files.FailCall(1);
  };
  ASSERT_TRUE(MainWindow(test.context).StartUp());
  EXPECT_EQ(test.context.Text(32), L"en&32");
  EXPECT_TRUE(test.prompts.messages.empty());
}

TEST_F(MainWindowTest, MissingFilesEndTheProgramOrAreSaid) {
  const auto start = [&](bool starts, const wchar_t* message) {
    test.prompts.messages.clear();
    MainWindow other(test.context);
    EXPECT_EQ(other.StartUp(), starts);
    EXPECT_EQ(test.prompts.messages, Texts{message});
    return other.album.helpgenre_btn.Enabled();
  };
  test.files.Delete(L"C:\\Tagrix\\styles.dat");
  EXPECT_FALSE(start(true, L"en&63"));
  test.files.Put(L"C:\\Tagrix\\styles.dat", Lines(147, "s"));
  start(true, L"en&64");
  test.files.Delete(L"C:\\Tagrix\\english.lf");
  start(false, L"Default language file (English) missing !!");
  TestContext bare;
  bare.files.Put(L"C:\\Tagrix\\english.lf", Lines(178, "en"));
  EXPECT_FALSE(MainWindow(bare.context).StartUp());
  EXPECT_EQ(bare.prompts.messages, Texts{L"default images missing, please reinstall Tagrix"});
  EXPECT_EQ(bare.context.settings.Get(setting::kLanguage), L"english");  // the language came first
}

TEST_F(MainWindowTest, ItRefusesToCloseWhileBusyAndCancelEndsWhatTheUserSees) {
  ASSERT_TRUE(window.StartUp());
  const SilentWork silent(test.context);
  {
    const LongWork work(test.context);
    window.form.RequestClose();
    EXPECT_FALSE(window.form.Closing());
    test.context.cancel_btn.Click();
    EXPECT_TRUE(work.Cancelled() && !silent.Cancelled());
  }
  window.form.RequestClose();
  EXPECT_TRUE(window.form.Closing() && silent.Cancelled());
}

}  // namespace
}  // namespace tagrix
