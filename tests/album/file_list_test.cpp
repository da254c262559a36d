#include "album/file_list.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct FileList : testing::Test {
  FileList() {
    for (const wchar_t* name : {L"b.mp3", L"a.mp3", L"B.ogg", L"cover.jpg", L"x_mp3", L"C.MP3"}) {
      test.files.Put(L"C:\\M\\" + std::wstring(name));
    }
    test.files.AddFolder(L"C:\\M\\live.mp3");
    test.context.settings.Put(L"LastDir", L"C:\\M");
  }
  void Browse(int format) {
    test.prompts.dialogs.push_back([=](Form& form) {
      Find<ComboBox>(form.layout, "format_cmb").Choose(format);
      Find<Button>(form.layout, "ok_btn").Click();
    });
    BrowseClicked(page, test.context);
  }
  Texts Files() const {
    Texts texts;
    for (int i = 0; i < page.mp3_lst.Count(); ++i) texts.push_back(page.mp3_lst.ItemText(i));
    return texts;
  }
  void List(std::initializer_list<const wchar_t*> names) {
    page.mp3_lst.Clear();
    for (const wchar_t* name : names) page.mp3_lst.Add(name);
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

TEST_F(FileList, ListsAFoldersFilesInTheOrderOfTheirCodes) {
  Browse(0);
  EXPECT_EQ(page.path_txt.Text(), L"C:\\M");
  EXPECT_EQ(Files(), (Texts{L"C.MP3", L"a.mp3", L"b.mp3"}));
  EXPECT_EQ(Enabled(), "---ci");
  EXPECT_TRUE(page.ID3v1_chk.Enabled() && page.ID3v2_chk.Enabled());

  Browse(1);
  EXPECT_EQ(Files(), Texts{L"B.ogg"});
  EXPECT_FALSE(page.ID3v1_chk.Enabled() || page.ID3v2_chk.Enabled());
}

TEST_F(FileList, StartsOverWithEachFolder) {
  page.new_lst.Add(L"Intro");
  page.tracks_lst.Add(L"[01] Intro");
  page.resalb_lst.Add(L"Artist / Album");
  page.artist_txt.SetText(L"Artist");
  Browse(0);
  EXPECT_EQ(page.new_lst.Count() + page.tracks_lst.Count() + page.resalb_lst.Count(), 0);
  EXPECT_EQ(page.artist_txt.Text(), L"");
  for (const Button* button : {&page.fetch_btn, &page.apply_btn, &page.more_btn, &page.undo_btn}) {
    EXPECT_FALSE(button->Enabled()) << button->Name();
  }
  EXPECT_TRUE(page.go_btn.Enabled() && page.autosort_btn.Enabled());

  // The list is emptied before the user chooses.
  BrowseClicked(page, test.context);
  EXPECT_EQ(page.path_txt.Text(), L"");
  EXPECT_EQ(Enabled(), "-----");
}

TEST_F(FileList, MovesTextsAndLeavesTheTimesInPlace) {
  List({L"a", L"b", L"c", L"d"});
  for (int i = 0; i < 4; ++i) page.mp3_lst.SetValue(i, i * 10);
  page.mp3_lst.SelectOnly(2);
  MoveUp(page);
  EXPECT_EQ(Files(), (Texts{L"a", L"c", L"b", L"d"}));
  EXPECT_EQ(Enabled(), "uddci");
  MoveUp(page);
  EXPECT_EQ(Enabled(), "-ddci");
  MoveUp(page);
  EXPECT_EQ(Files(), (Texts{L"c", L"a", L"b", L"d"}));

  DragEntry(page, 0, 3);
  EXPECT_EQ(Files(), (Texts{L"a", L"b", L"d", L"c"}));
  EXPECT_EQ(page.mp3_lst.SelectedIndex(), 3);
  EXPECT_EQ(Enabled(), "u-dci");
  MoveDown(page);
  DragEntry(page, 3, 1);
  EXPECT_EQ(Files(), (Texts{L"a", L"c", L"b", L"d"}));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(page.mp3_lst.Value(i), i * 10);

  // Only a single entry moves.
  page.mp3_lst.Select(3);
  MoveUp(page);
  MoveDown(page);
  EXPECT_EQ(Files(), (Texts{L"a", L"c", L"b", L"d"}));
}

TEST_F(FileList, DeletesEntriesAndForgetsTheUndo) {
  List({L"a", L"b", L"c", L"d"});
  page.mp3_lst.Select(1);
  page.mp3_lst.Select(3);
  DeleteSelected(page);
  EXPECT_EQ(Files(), (Texts{L"a", L"c"}));
  EXPECT_EQ(page.mp3_lst.SelectedIndex(), 1);
  EXPECT_FALSE(page.undo_btn.Enabled());
  DeleteSelected(page);
  DeleteSelected(page);
  EXPECT_EQ(Enabled(), "-----");

  page.undo_btn.SetEnabled(true);
  DeleteSelected(page);
  EXPECT_TRUE(page.undo_btn.Enabled());
  AddFakes(page, 1);
  EXPECT_EQ(Files(), Texts{L"**FAKE TRACK**"});
  EXPECT_EQ(Enabled(), "---ci");
  ClearFiles(page);
  EXPECT_EQ(Enabled(), "-----");
  EXPECT_FALSE(page.undo_btn.Enabled());
}

TEST_F(FileList, OpensAutoSortOnlyForAFileATrack) {
  AutoSortClicked(page, test.context);
  EXPECT_TRUE(test.prompts.messages.empty());
  List({L"a", L"b", L" **Fake Track**"});
  for (const wchar_t* title : {L"One", L"Two", L"Three"}) page.new_lst.Add(title);
  AutoSortClicked(page, test.context);
  page.mp3_lst.Remove(2);
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.messages.size(), 2u);
  EXPECT_TRUE(test.prompts.shown.empty());
  page.mp3_lst.Add(L"c");
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.messages.size(), 2u);
  EXPECT_EQ(test.prompts.shown.size(), 1u);
}

}  // namespace
}  // namespace tagrix
