#include "app/main_window.h"

#include <gtest/gtest.h>

#include "core/text.h"
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
  EXPECT_EQ(window.album.genre_txt.Text(), L"Unknown");
  for (const Button* button : {&window.album.info_btn, &window.album.fetch_btn, &window.album.apply_btn}) {
    EXPECT_FALSE(button->Enabled()) << button->Name();
  }
  for (std::size_t i = 0; i < window.workfrm.size(); ++i) EXPECT_EQ(window.workfrm[i].Visible(), i == 0);

  for (Button& button : test.context.page_btn) button.Click();
  test.context.page_btn[6].Click();
  EXPECT_EQ(test.shell.sounds, (Texts{L"C:\\Tagrix\\OCsound.wav", L"C:\\Tagrix\\OCsound.wav"}));
  EXPECT_TRUE(window.workfrm[6].Visible());
}

TEST_F(MainWindowTest, TheLanguageSettingIsTrimmedAndMustNameAFile) {
  test.files.Put(L"C:\\Tagrix\\Klingon.lf", Lines(178, "tlh"));
  test.context.settings.Put(L"langue", L"  Klingon ");
  ASSERT_TRUE(window.StartUp());
  EXPECT_EQ(test.context.Text(32), L"tlh32");
  EXPECT_EQ(window.setup.setup_lngcmb.Text(), L"Klingon");

  test.context.settings.Put(L"langue", L"Romulan");
  MainWindow other(test.context);
  ASSERT_TRUE(other.StartUp());
  EXPECT_EQ(test.context.Text(32), L"en&32");
}

TEST_F(MainWindowTest, MissingFilesEndTheProgramOrAreSaid) {
  test.files.Delete(L"C:\\Tagrix\\styles.dat");
  EXPECT_TRUE(window.StartUp());
  EXPECT_EQ(test.prompts.messages, Texts{L"en&63"});
  EXPECT_FALSE(window.album.helpgenre_btn.Enabled());

  test.files.Put(L"C:\\Tagrix\\styles.dat", Lines(147, "s"));
  test.prompts.messages.clear();
  EXPECT_TRUE(MainWindow(test.context).StartUp());
  EXPECT_EQ(test.prompts.messages, Texts{L"en&64"});

  test.files.Delete(L"C:\\Tagrix\\english.lf");
  test.prompts.messages.clear();
  EXPECT_FALSE(MainWindow(test.context).StartUp());
  EXPECT_EQ(test.prompts.messages, Texts{L"Default language file (English) missing !!"});

  TestContext bare;
  bare.files.Put(L"C:\\Tagrix\\english.lf", Lines(178, "en"));
  EXPECT_FALSE(MainWindow(bare.context).StartUp());
  EXPECT_EQ(bare.prompts.messages, Texts{L"default images missing, please reinstall Tagrix"});
  EXPECT_EQ(bare.context.settings.Get(L"langue"), L"english");  // the language came first
}

TEST_F(MainWindowTest, ItRefusesToCloseWhileBusyAndCancelRaisesTheFlag) {
  ASSERT_TRUE(window.StartUp());
  SetBusy(test.context, true);
  window.form.RequestClose();
  EXPECT_FALSE(window.form.Closing());
  test.context.page_btn[1].Click();
  EXPECT_TRUE(window.workfrm[0].Visible());
  test.context.cancel_btn.Click();
  EXPECT_TRUE(test.context.cancelled);
  SetBusy(test.context, false);
  test.context.cancelled = false;
  window.form.RequestClose();
  EXPECT_TRUE(window.form.Closing());
  EXPECT_TRUE(test.context.cancelled);
}

}  // namespace
}  // namespace tagrix
