#include <gtest/gtest.h>

#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/fixtures.h"
#include "tools/playlist/pls_mod.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kTarget = L"C:\\Music\\Best.m3u";

struct Playlist : testing::Test, TestContext {
  Playlist() {
    InitPlaylistPage(page, context);
    files.Put(L"C:\\Music\\Rock\\a.mp3");
    for (const wchar_t* path : {L"C:\\Music\\Rock\\a.mp3", L"D:\\R&B\\caf\u00e9.ogg"}) page.pls_lst.Add(path);
    page.pls_name_txt.Type(L" Best ");
    page.pls_output_txt.Type(L"C:\\Music");
    UpdatePlaylistGo(page, context);
  }
  PlaylistPage page;
};

TEST_F(Playlist, AsksBeforeItReplacesAndCancelDoesNotBringTheOldOneBack) {
  files.Put(kTarget, "old");
  prompts.answers = {false, true, true};
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), "old");
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), "Rock\\a.mp3\r\nD:\\R&B\\caf\xe9.ogg\r\n");
  events.Post([&] {
    for (const Button* button : {&page.pls_go_btn, &page.pls_add_btn, &page.pls_reset_btn}) {
      EXPECT_FALSE(button->Enabled()) << button->Name();
    }
    CancelWork(context);
  });
  page.pls_go_btn.Click();
  EXPECT_FALSE(files.Has(kTarget));
  EXPECT_EQ(prompts.questions, Texts(3, TestText(message::kOverwritePlaylist).substr(0, 6) + L"Best.m3u"));
  EXPECT_EQ(prompts.messages, (Texts{L"<51>", L"<177>"}));
}

// Typing and Reset leave the button as it is.
TEST_F(Playlist, WritesWhatItCanAndSaysWhatItCannot) {
  page.pls_reset_btn.Click();
  for (const auto& [name, folder] : {std::pair(L"aux/?", L"C:\\Music"), {L"?", L"C:\\Music"}, {L"Best", L"C:\\gone"}}) {
    page.pls_name_txt.Type(name);
    page.pls_output_txt.Type(folder);
    page.pls_go_btn.Click();
  }
  EXPECT_EQ(prompts.messages, (Texts{L"<51>", L"<229>", L"<230> C:\\gone"}));
  EXPECT_EQ(files.AllFiles(), (Texts{L"C:\\Music\\aux_.m3u", L"C:\\Music\\Rock\\a.mp3"}));
}

TEST_F(Playlist, GoNeedsANameAFolderAndFiles) {
  const struct {
    const wchar_t *name, *folder;
    bool enabled;
  } cases[] = {{L"Best", L"C:\\Music", true}, {L" ", L"C:\\Music", false}, {L"Best", L"C:\\gone", false}};
  for (const auto& expected : cases) {
    page.pls_name_txt.Type(expected.name);
    page.pls_output_txt.Type(expected.folder);
    UpdatePlaylistGo(page, context);
    EXPECT_EQ(page.pls_go_btn.Enabled(), expected.enabled) << expected.folder;
  }
}

TEST_F(Playlist, TakesFilesAndFoldersMoreThanOnce) {
  page.pls_reset_btn.Click();
  prompts.openFiles = {L"C:\\Music\\Rock", {L"a.mp3"}};
  page.pls_add_btn.Click();
  prompts.dialogs = {PressOk, PressOk};
  page.pls_addfolder_btn.Click();  // opens where the file was
  EXPECT_EQ(page.pls_lst.Texts(), (Texts{L"C:\\Music\\Rock\\a.mp3", L"C:\\Music\\Rock\\a.mp3"}));
  page.pls_output_btn.Click();
  EXPECT_EQ(page.pls_output_txt.Text(), L"C:\\Music\\Rock");
  for (const bool left : {true, false}) {
    page.pls_lst.Select(0);
    page.pls_lst.PressKey(ListKey::Delete);
    EXPECT_EQ(page.pls_go_btn.Enabled(), left);
  }
}

// F2 does what "Rename" in the menu does.
TEST_F(Playlist, RenamesASelectedFileWhereverItIsListed) {
  page.pls_lst.Add(L"C:\\Music\\Rock\\a.mp3");
  page.pls_lst.SelectOnly(2);
  const auto rename = [&](const wchar_t* name) {
    prompts.dialogs.emplace_back([=](Form& form) {
      Find<TextBox>(form.layout, "name_txt").SetText(name);
      PressOk(form);
    });
    page.pls_lst.PressKey(ListKey::Rename);
  };
  for (const wchar_t* name : {L" ?", L"a.mp3", L" Con/.mp3 "}) rename(name);
  const std::wstring renamed = L"C:\\Music\\Rock\\Con_.mp3";
  EXPECT_EQ(page.pls_lst.Texts(), (Texts{renamed, L"D:\\R&B\\caf\u00e9.ogg", renamed}));
  EXPECT_EQ(files.AllFiles(), Texts{renamed});
  EXPECT_TRUE(prompts.messages.empty());
  page.pls_lst.SelectOnly(1);
  page.pls_lst.menu().back().chosen();  // closed at once
  rename(L"b.mp3");                     // of a file that is gone
  EXPECT_EQ(prompts.messages, Texts{L"<169> D:\\R&B\\b.mp3"});
}

}  // namespace
}  // namespace tagrix
