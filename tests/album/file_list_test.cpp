#include "album/file_list.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct FileList : testing::Test {
  void Browse(int format) {
    test.prompts.dialogs.push_back([=](Form& form) {
      Find<ComboBox>(form.layout, "format_cmb").Choose(format);
      Find<Button>(form.layout, "ok_btn").Click();
    });
    BrowseClicked(page, test.context);
  }
  // Which of up, down, delete, clear and info are enabled, by their initials.
  std::string Enabled() {
    std::string enabled;
    for (const Button* button : {&page.up_btn, &page.down_btn, &page.delete_btn, &page.clear_btn, &page.info_btn}) {
      enabled += button->Enabled() ? button->Name()[0] : '-';
    }
    return enabled;
  }

  TestContext test;
  AlbumPage page;
};

TEST_F(FileList, StartsOverWithEachFolderInTheOrderOfCodes) {
  for (const wchar_t* name : {L"b.mp3", L"a.mp3", L"B.ogg", L"x_mp3", L"C.MP3"}) {
    test.files.Put(L"C:\\M\\" + std::wstring(name));
  }
  test.files.AddFolder(L"C:\\M\\live.mp3");
  test.context.settings.Put(L"LastDir", L"C:\\M");
  for (ListBox* list : {&page.new_lst, &page.tracks_lst, &page.resalb_lst}) list->Add(L"before");
  page.artist_txt.SetText(L"before");
  Browse(0);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"C.MP3", L"a.mp3", L"b.mp3"}));
  EXPECT_EQ(Enabled(), "---ci");
  EXPECT_EQ(page.new_lst.Count() + page.tracks_lst.Count() + page.resalb_lst.Count(), 0);
  EXPECT_EQ(page.artist_txt.Text(), L"");
  EXPECT_FALSE(page.apply_btn.Enabled() || page.undo_btn.Enabled() || page.fetch_btn.Enabled());
  EXPECT_TRUE(page.ID3v1_chk.Enabled() && page.ID3v2_chk.Enabled());

  Browse(1);
  EXPECT_EQ(page.mp3_lst.Texts(), Texts{L"B.ogg"});
  EXPECT_FALSE(page.ID3v1_chk.Enabled() || page.ID3v2_chk.Enabled());

  BrowseClicked(page, test.context);  // empties the list before the user chooses
  EXPECT_EQ(page.path_txt.Text(), L"");
  EXPECT_EQ(Enabled(), "-----");
}

TEST_F(FileList, MovesTextsAndLeavesTheTimesInPlace) {
  for (const wchar_t* name : {L"a", L"b", L"c", L"d"}) page.mp3_lst.Add(name, page.mp3_lst.Count() * 10);
  page.mp3_lst.SelectOnly(1);
  MoveUp(page);
  MoveUp(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"b", L"a", L"c", L"d"}));
  EXPECT_EQ(Enabled(), "-ddci");

  DragEntry(page, 0, 3);
  MoveDown(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c", L"d", L"b"}));
  EXPECT_EQ(Enabled(), "u-dci");
  DragEntry(page, 3, 1);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"b", L"c", L"d"}));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(page.mp3_lst.Value(i), i * 10);

  page.mp3_lst.Select(3);  // only a single entry moves
  MoveUp(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"b", L"c", L"d"}));
}

TEST_F(FileList, DeletesEntriesAndForgetsTheUndo) {
  for (const wchar_t* name : {L"a", L"b", L"c", L"d"}) page.mp3_lst.Add(name);
  page.mp3_lst.Select(1);
  page.mp3_lst.Select(3);
  DeleteSelected(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c"}));
  EXPECT_EQ(page.mp3_lst.SelectedIndex(), 1);
  EXPECT_FALSE(page.undo_btn.Enabled());

  page.undo_btn.SetEnabled(true);
  page.mp3_lst.SelectOnly(-1);
  DeleteSelected(page);
  EXPECT_TRUE(page.undo_btn.Enabled());
  AddFakes(page, 1);
  EXPECT_EQ(page.mp3_lst.ItemText(2), L"**FAKE TRACK**");
  ClearFiles(page);
  EXPECT_EQ(Enabled(), "-----");
  EXPECT_FALSE(page.undo_btn.Enabled());
}

TEST_F(FileList, OpensAutoSortOnlyForAFileATrack) {
  for (const wchar_t* name : {L"a", L" **Fake Track**"}) page.mp3_lst.Add(name);
  for (const wchar_t* title : {L"One", L"Two"}) page.new_lst.Add(title);
  AutoSortClicked(page, test.context);
  page.mp3_lst.Remove(1);
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.messages.size(), 2u);
  EXPECT_TRUE(test.prompts.shown.empty());
  page.mp3_lst.Add(L"c");
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.shown.size(), 1u);
}

}  // namespace
}  // namespace tagrix
