#include <gtest/gtest.h>

#include "dialogs/fixtures.h"
#include "tools/playlist/pls_mod.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;
constexpr const wchar_t* kTarget = L"C:\\Music\\Best.m3u";
constexpr const char* kLines = "Rock\\a.mp3\r\nD:\\R&B\\b.ogg\r\n..\\c.wav\r\n";

struct Playlist : testing::Test, TestContext {
  Playlist() {
    InitPlaylistPage(page, context);
    files.Put(L"C:\\Music\\Rock\\a.mp3");
    for (const wchar_t* path : {L"C:\\Music\\Rock\\a.mp3", L"D:\\R&B\\b.ogg", L"C:\\c.wav"}) page.pls_lst.Add(path);
    page.pls_name_txt.Type(L" Best ");
    page.pls_output_txt.Type(L"C:\\Music");
    UpdatePlaylistGo(page, context);
  }
  PlaylistPage page;
};

TEST_F(Playlist, AsksBeforeItReplaces) {
  events.eachTime = [&] {
    EXPECT_TRUE(context.busy);
    EXPECT_FALSE(page.pls_go_btn.Enabled() || page.pls_reset_btn.Enabled() || page.pls_add_btn.Enabled());
    EXPECT_EQ(context.status_lbl.Text(), L"C:\\Music\\Rock\\a.mp3");
  };
  files.Put(kTarget, "old");
  prompts.answers = {false, true};
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), "old");
  EXPECT_TRUE(prompts.messages.empty());
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), kLines);
  EXPECT_EQ(prompts.questions, (Texts{L"<118>", L"<118>"}));
  EXPECT_EQ(prompts.messages, Texts{L"<51>"});
  EXPECT_TRUE(page.pls_go_btn.Enabled() && !context.busy && context.status_lbl.Text().empty());
}

TEST_F(Playlist, GoNeedsNameFilesAndFolder) {
  EXPECT_TRUE(page.pls_go_btn.Enabled());
  for (const auto& [name, folder] :
       {std::pair(L"  ", L"C:\\Music"), std::pair(L"a", L""), std::pair(L"a", L"C:\\Music\\Rock\\a.mp3")}) {
    page.pls_name_txt.SetText(name);
    page.pls_output_txt.SetText(folder);
    UpdatePlaylistGo(page, context);
    EXPECT_FALSE(page.pls_go_btn.Enabled());
  }
}

TEST_F(Playlist, ResetLeavesTheGoButtonAndWritesAnEmptyPlaylist) {
  page.pls_reset_btn.Click();
  page.pls_name_txt.Type(L"");
  page.pls_name_txt.Type(L"A/C: ?");
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\Music\\AC.m3u")->size, 0u);

  page.pls_lst.Add(L"C:\\x.mp3");
  page.pls_lst.Select(0);
  page.pls_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(page.pls_lst.Count(), 0);
  EXPECT_FALSE(page.pls_go_btn.Enabled());
}

TEST_F(Playlist, AFailureLeavesTheOldOneButCancelDoesNotBringItBack) {
  files.Put(kTarget, "old");
  files.FailCall(2);
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), "old");
  EXPECT_EQ(prompts.messages.size(), 1u);
  EXPECT_TRUE(page.pls_go_btn.Enabled() && !context.busy);
  events.Post([&] { context.cancelled = true; });
  page.pls_go_btn.Click();
  EXPECT_FALSE(files.Has(kTarget));
  EXPECT_EQ(prompts.messages.back(), L"<177>");
  EXPECT_TRUE(page.pls_go_btn.Enabled() && !context.busy);
}

TEST_F(Playlist, TakesFilesAndFoldersMoreThanOnce) {
  prompts.openFiles = {L"C:\\Music\\Rock", {L"a.mp3"}};
  page.pls_add_btn.Click();
  prompts.dialogs = {PressOk, PressOk};
  page.pls_addfolder_btn.Click();  // opens where the file was
  EXPECT_EQ(page.pls_lst.ItemText(3), L"C:\\Music\\Rock\\a.mp3");
  EXPECT_EQ(page.pls_lst.ItemText(4), L"C:\\Music\\Rock\\a.mp3");
  page.pls_output_btn.Click();
  EXPECT_EQ(page.pls_output_txt.Text(), L"C:\\Music\\Rock");
}

}  // namespace
}  // namespace tagrix
