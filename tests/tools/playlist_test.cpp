#include <gtest/gtest.h>

#include "fakes/fakes.h"
#include "tools/playlist/pls_mod.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kTarget = L"C:\\Music\\Best.m3u";

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

using Texts = std::vector<std::wstring>;
constexpr const char* kLines = "Rock\\a.mp3\r\nD:\\R&B\\b.ogg\r\n..\\c.wav\r\n";

TEST_F(Playlist, IsWrittenAsSeenFromItsFolder) {
  events.eachTime = [&] {
    EXPECT_TRUE(context.busy);
    EXPECT_FALSE(page.pls_go_btn.Enabled() || page.pls_reset_btn.Enabled() || page.pls_add_btn.Enabled());
    EXPECT_EQ(context.status_lbl.Text(), L"C:\\Music\\Rock\\a.mp3");
  };
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), kLines);
  EXPECT_EQ(prompts.messages, Texts{L"<51>"});
  EXPECT_TRUE(page.pls_go_btn.Enabled());
  EXPECT_EQ(context.status_lbl.Text(), L"");
  EXPECT_FALSE(context.busy);
}

TEST_F(Playlist, GoNeedsNameFilesAndFolder) {
  EXPECT_TRUE(page.pls_go_btn.Enabled());
  for (const auto& [name, folder] : {std::pair(L"  ", L"C:\\Music"), std::pair(L"a", L""), std::pair(L"a", L"C:\\gone"),
                                     std::pair(L"a", L"C:\\Music\\Rock\\a.mp3")}) {
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
  EXPECT_TRUE(page.pls_go_btn.Enabled());
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\Music\\AC.m3u")->size, 0u);

  page.pls_lst.Add(L"C:\\x.mp3");
  page.pls_lst.Select(0);
  page.pls_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(page.pls_lst.Count(), 0);
  EXPECT_FALSE(page.pls_go_btn.Enabled());
}

TEST_F(Playlist, DeletesWhatIsSelected) {
  page.pls_lst.Select(0);
  page.pls_lst.Select(2);
  page.pls_delete_btn.Click();
  ASSERT_EQ(page.pls_lst.Count(), 1);
  EXPECT_EQ(page.pls_lst.ItemText(0), L"D:\\R&B\\b.ogg");
}

TEST_F(Playlist, AsksBeforeItReplaces) {
  files.Put(kTarget, "old");
  prompts.answers = {false};
  page.pls_go_btn.Click();
  EXPECT_EQ(prompts.questions, Texts{L"<118>"});
  EXPECT_EQ(files.Content(kTarget), "old");
  EXPECT_TRUE(prompts.messages.empty());
  page.pls_go_btn.Click();
  EXPECT_EQ(files.Content(kTarget), kLines);
}

TEST_F(Playlist, CancelWritesNothingAndDoesNotBringTheOldOneBack) {
  files.Put(kTarget, "old");
  events.Post([&] { context.cancelled = true; });
  page.pls_go_btn.Click();
  EXPECT_FALSE(files.Has(kTarget));
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
  EXPECT_TRUE(page.pls_go_btn.Enabled());
  EXPECT_FALSE(context.busy);
}

TEST_F(Playlist, AFailedWriteLeavesTheOldOne) {
  for (int n = 1;; ++n) {
    files.Put(kTarget, "old");
    prompts.messages.clear();
    files.FailCall(n);
    page.pls_go_btn.Click();
    EXPECT_TRUE(page.pls_go_btn.Enabled());
    EXPECT_FALSE(context.busy);
    if (prompts.messages == Texts{L"<51>"}) break;
    EXPECT_EQ(files.Content(kTarget), "old") << n;
    EXPECT_EQ(prompts.messages.size(), 1u);
    ASSERT_LT(n, 20);
  }
}

TEST_F(Playlist, TakesFilesAndFoldersMoreThanOnce) {
  prompts.openFiles = {L"C:\\Music\\Rock", {L"a.mp3"}};
  page.pls_add_btn.Click();
  EXPECT_EQ(page.pls_lst.ItemText(3), L"C:\\Music\\Rock\\a.mp3");
  EXPECT_EQ(prompts.lastRequest.filters.size(), 1u);
  const auto ok = [](Form& form) { Find<Button>(form.layout, "ok_btn").Click(); };
  prompts.dialogs = {ok, ok};
  page.pls_addfolder_btn.Click();  // opens where the file was
  EXPECT_EQ(page.pls_lst.ItemText(4), L"C:\\Music\\Rock\\a.mp3");

  page.pls_output_txt.SetText(L"");
  page.pls_output_btn.Click();
  EXPECT_EQ(page.pls_output_txt.Text(), L"C:\\Music\\Rock");
  EXPECT_TRUE(page.pls_go_btn.Enabled());
}

}  // namespace
}  // namespace tagrix
