#include "album/file_list.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct FileList : testing::Test {
  void Browse(int format, const char* button = "ok_btn") {
    test.prompts.dialogs.push_back([=](Form& form) {
      Find<ComboBox>(form.layout, "format_cmb").Choose(format);
      Find<Button>(form.layout, button).Click();
    });
    RunCommand(test.context, [&] { BrowseClicked(page, test.context); });
  }
  void List(std::initializer_list<const wchar_t*> names) {
    for (const wchar_t* name : names) {
      page.session.files.push_back({name, static_cast<std::int32_t>(page.session.files.size()) * 10});
      page.mp3_lst.Add(name);
    }
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
  test.context.settings.Put(setting::kLastDir, L"C:\\M");
  page.session.disc.tracks = {{L"before"}};
  page.session.hits = {{L"before", L"rock", L"1"}};
  for (ListBox* list : {&page.tracks_lst, &page.resalb_lst}) list->Add(L"before");
  page.artist_txt.SetText(L"before");
  Browse(0);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"C.MP3", L"a.mp3", L"b.mp3"}));
  EXPECT_EQ(Enabled(), "---ci");
  EXPECT_TRUE(page.session.disc.tracks.empty() && page.session.hits.empty());
  EXPECT_EQ(page.tracks_lst.Count() + page.resalb_lst.Count(), 0);
  EXPECT_EQ(page.artist_txt.Text(), L"");
  EXPECT_FALSE(page.apply_btn.Enabled() || page.undo_btn.Enabled() || page.fetch_btn.Enabled());
  EXPECT_TRUE(page.ID3v1_chk.Enabled() && page.ID3v2_chk.Enabled());

  // All stays when the chooser is cancelled, or the folder can't be read.
  page.apply_btn.SetEnabled(true);
  Browse(1, "cancel_btn");
  test.files.beforeCall = [&](const std::wstring&) { throw Failure(Action::List); };
  Browse(1);
  test.files.beforeCall = nullptr;
  EXPECT_EQ(test.prompts.messages.size(), 1u);
  EXPECT_EQ(page.path_txt.Text(), L"C:\\M");
  EXPECT_EQ(page.session.format, L"MP3");
  EXPECT_EQ(FileCount(page.session), 3);
  EXPECT_TRUE(page.apply_btn.Enabled() && page.ID3v1_chk.Enabled());

  Browse(1);
  EXPECT_EQ(page.mp3_lst.Texts(), Texts{L"B.ogg"});
  EXPECT_FALSE(page.apply_btn.Enabled() || page.ID3v1_chk.Enabled() || page.ID3v2_chk.Enabled());
}

TEST_F(FileList, MovesNamesAndLeavesTheTimesInPlace) {
  List({L"a", L"b", L"c", L"d"});
  page.mp3_lst.SelectOnly(1);
  MoveUp(page);
  MoveUp(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"b", L"a", L"c", L"d"}));
  EXPECT_EQ(Enabled(), "-ddci");

  DragEntry(page, 0, 3);
  MoveDown(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c", L"d", L"b"}));
  EXPECT_EQ(Enabled(), "u-dci");
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(page.session.files[i].name, page.mp3_lst.Texts()[i]);
    EXPECT_EQ(page.session.files[i].milliseconds, static_cast<int>(i) * 10);
  }

  page.mp3_lst.Select(0);  // only a single entry moves
  MoveUp(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c", L"d", L"b"}));
}

TEST_F(FileList, DeletesEntriesAndForgetsTheUndo) {
  List({L"a", L"b", L"c", L"d"});
  page.mp3_lst.Select(1);
  page.mp3_lst.Select(3);
  DeleteSelected(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c"}));
  EXPECT_EQ(page.session.files[1].name, L"c");
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
  List({L"a"});
  AddFakes(page, 1);
  page.session.disc.tracks = {{L"One"}, {L"Two"}};
  AutoSortClicked(page, test.context);
  page.mp3_lst.SelectOnly(1);
  DeleteSelected(page);
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.messages, Texts(2, TestText(message::kAutoSortGate)));
  List({L"c"});
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.shown, std::vector<std::string>{"Autosort"});
}

}  // namespace
}  // namespace tagrix
