#include "album/file_list.h"

#include <gtest/gtest.h>

#include "album/album_mod.h"
#include "album/album_table.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

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

TEST_F(FileList, OpensWhatIsDroppedAsWhatTheFolderHolds) {
  test.files.Put(L"C:\\O\\a.ogg");
  test.files.Put(L"C:\\O\\b.wma");
  OpenAlbum(page, test.context, L"C:\\O\\");
  EXPECT_EQ(page.mp3_lst.Texts(), Texts{L"a.ogg"});
  OpenAlbum(page, test.context, L"C:\\O\\b.wma");
  EXPECT_EQ(page.mp3_lst.Texts(), Texts{L"b.wma"});
  OpenAlbum(page, test.context, L"C:\\gone");
  EXPECT_EQ(test.prompts.messages, Texts{L"<230> C:\\gone"});
  EXPECT_EQ(page.path_txt.Text(), L"C:\\O");
}

TEST_F(FileList, TheTableHasARowForEachFileAndEachTrack) {
  InitAlbumPage(page, test.context);
  List({L"a", L"b"});
  page.session.files[0].length = 60'000;
  page.session.files[1].length = 75'000;
  page.session.disc.tracks = {{L"One", 60 * 75}, {L"Two", 70 * 75}, {L"Three", 80 * 75}};
  for (int i = 0; i < 3; ++i) page.tracks_lst.Add(TrackLine(page.session, i));
  test.context.settings.Put(setting::kPattern, L"%2");
  ShowTable(page);
  const auto row = [&](int i) {
    std::wstring cells;
    for (int column = 1; column < 7; ++column) cells += page.mp3_lst.cell(i, column) + L"|";
    return cells;
  };
  EXPECT_EQ(row(0), L"a|1:00|[01] One|1:00|\u00B10.0 s|One.mp3|");
  EXPECT_EQ(row(1), L"b|1:15|[02] Two|1:10|\u25B2 +5.0 s <292>|Two.mp3|");
  EXPECT_EQ(row(2), L"||[03] Three|1:20|<222>||");
  page.artist_txt.Type(L"typed");
  EXPECT_EQ(page.session.disc.artist, L"typed");

  // Rows without a file are no places for files.
  page.mp3_lst.SelectOnly(2);
  DeleteSelected(page);
  MoveUp(page);
  DragEntry(page, 0, 2);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"b", L"a", L""}));
  EXPECT_EQ(page.session.files[0].length, 75'000);
  page.mp3_lst.DoubleClickItem(2);
  EXPECT_EQ(test.prompts.shown, std::vector<std::string>{"trackedit"});
}

TEST_F(FileList, MovesNamesAndLeavesTheTimesInPlace) {
  List({L"a", L"b", L"c", L"d"});
  page.session.files[2].fake = true;
  page.mp3_lst.SelectOnly(1);
  MoveUp(page);
  MoveUp(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"b", L"a", L"c", L"d"}));
  EXPECT_EQ(Enabled(), "-ddci");

  DragEntry(page, 0, 3);
  MoveDown(page);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a", L"c", L"d", L"b"}));
  EXPECT_EQ(Enabled(), "u-dci");
  EXPECT_TRUE(page.session.files[1].fake);  // the third at first
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
  List({L"c", L"d"});
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.messages, Texts(3, TestText(message::kAutoSortGate)));
  page.session.disc.tracks.push_back({L"Three"});
  AutoSortClicked(page, test.context);
  EXPECT_EQ(test.prompts.shown, std::vector<std::string>{"Autosort"});
}

}  // namespace
}  // namespace tagrix
