#include "app/main_window.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "fakes/fakes.h"
#include "forms/spoken_names.h"

namespace tagrix {
namespace {

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    test.context.language.lng_lst.clear();
    test.files.Put(L"C:\\Tagrix\\english.lf", LanguageFile(178, "en&"));
    test.files.AddFolder(L"C:\\Tagrix\\skin");
    test.files.Put(L"C:\\Tagrix\\styles.dat", LanguageFile(148, "style"));
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
  window.form.shown();  // the burning program is not there
  EXPECT_EQ(test.prompts.shown, std::vector<std::string>{"question"});
  EXPECT_EQ(test.shell.sounds, Texts{L"C:\\Tagrix\\OCsound.wav"});
  EXPECT_TRUE(window.workfrm[6].Visible());
}

TEST_F(MainWindowTest, TheLanguageSettingIsTrimmedAndMustNameAFile) {
  test.files.Put(L"C:\\Tagrix\\Klingon.lf", LanguageFile(178, "tlh"));
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
  test.files.Put(L"C:\\Tagrix\\styles.dat", LanguageFile(147, "s"));
  start(true, L"en&64");
  test.files.Put(L"C:\\Tagrix\\english.lf", LanguageFile(177, "en"));
  start(false, L"Language file error, you must reinstall Tagrix and contact technical support");
  test.files.Delete(L"C:\\Tagrix\\english.lf");
  start(false, L"Default language file (English) missing !!");
  TestContext bare;
  bare.files.Put(L"C:\\Tagrix\\english.lf", LanguageFile(178, "en"));
  EXPECT_FALSE(MainWindow(bare.context).StartUp());
  EXPECT_EQ(bare.prompts.messages, Texts{L"default images missing, please reinstall Tagrix"});
  EXPECT_EQ(bare.context.settings.Get(setting::kLanguage), L"english");  // the language came first
}

TEST_F(MainWindowTest, KeysTurnThePagesAndSizeAndPageAreRemembered) {
  ASSERT_TRUE(window.StartUp());
  test.context.status_lbl.SetText(L"of the album page");
  window.form.keyPressed(FormKey::Page, 4);
  EXPECT_EQ(test.context.status_lbl.Text(), L"");
  EXPECT_TRUE(window.workfrm[4].Visible());
  window.form.keyPressed(FormKey::PreviousPage, 0);
  window.form.keyPressed(FormKey::NextPage, 0);
  window.form.keyPressed(FormKey::Page, 8);  // there is none
  EXPECT_TRUE(window.workfrm[4].Visible());
  EXPECT_NE(test.context.page_btn[4].SpokenName(), test.context.Text(message::kBurnPage));
  EXPECT_EQ(test.context.page_btn[0].SpokenName(), test.context.Text(message::kAlbumPage));
  window.form.keyPressed(FormKey::PreviousPage, 0);
  {
    const LongWork work(test.context);
    window.form.keyPressed(FormKey::Page, 6);
    EXPECT_TRUE(window.workfrm[3].Visible());
  }
  window.form.keyPressed(FormKey::Help, 0);
  EXPECT_EQ(test.prompts.messages.size(), 1U) << "no manual";
  test.files.Put(L"C:\\Tagrix\\manual\\manual.html");
  window.form.keyPressed(FormKey::Help, 0);
  EXPECT_EQ(test.shell.opened, Texts{L"C:\\Tagrix\\manual\\manual.html"});
  window.form.startSize = {1234, 777};
  window.form.maximised = true;
  window.form.closed();

  MainWindow again(test.context);
  ASSERT_TRUE(again.StartUp());
  EXPECT_TRUE(again.workfrm[3].Visible() && again.form.maximised);
  EXPECT_EQ(again.form.startSize, (Size{1234, 777}));
  test.context.settings.Put(setting::kWindow, L"x");
  test.context.settings.Put(setting::kPage, L"9");
  MainWindow after(test.context);
  ASSERT_TRUE(after.StartUp());
  EXPECT_TRUE(after.workfrm[0].Visible() && !after.form.maximised);
}

TEST_F(MainWindowTest, AScreenReaderKnowsEveryControlByAName) {
  ASSERT_TRUE(window.StartUp());
  const std::vector<SpokenName> names = SpokenNames(window.form.layout);
  EXPECT_GT(names.size(), 80U);
  for (const SpokenName& name : names) EXPECT_NE(name.name, L"") << name.control->Name();
}

TEST_F(MainWindowTest, ItRefusesToCloseWhileBusyAndCancelEndsWhatTheUserSees) {
  ASSERT_TRUE(window.StartUp());
  const SilentWork silent(test.context);
  {
    LongWork work(test.context);
    window.form.RequestClose();
    EXPECT_FALSE(window.form.Closing());
    work.Status(L"what it does");
    EXPECT_EQ(test.context.status_lbl.Text(), test.context.Text(message::kStillAtWork));
    window.form.escaped();
    EXPECT_TRUE(work.Cancelled() && !silent.Cancelled());
  }
  EXPECT_EQ(test.context.status_lbl.Text(), L"");
  window.album.go_btn.Click();  // without files: busy, though nothing runs
  EXPECT_TRUE(IsBusy(test.context));
  test.context.cancel_btn.Click();
  EXPECT_FALSE(IsBusy(test.context));

  window.album.apply_btn.SetEnabled(true);  // an album that was never applied
  test.prompts.answers = {false, false};
  EXPECT_FALSE(test.context.mayQuit());
  window.album.settled = false;
  window.form.RequestClose();
  EXPECT_FALSE(window.form.Closing());
  EXPECT_EQ(test.prompts.questions, Texts(2, test.context.Text(message::kLeaveAlbum)));
  window.form.RequestClose();
  EXPECT_TRUE(window.form.Closing() && silent.Cancelled());
}

}  // namespace
}  // namespace tagrix
