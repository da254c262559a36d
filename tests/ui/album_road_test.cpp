// The whole way from a folder of unnamed MP3 files to a tagged album and back, with a real disc server.
#include <algorithm>
#include <vector>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

namespace fs = std::filesystem;

using AlbumRoadTest = AlbumTest;

constexpr int kFile = 1, kTrack = 3, kNewName = 6;  // columns of the table

TEST_F(AlbumRoadTest, NamesAndTagsAnAlbumAndTakesItBack) {
  const std::vector<std::wstring> before = NamesIn(album_);
  const Program& program = Start();
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  Picture(" 1 folder");
  program.Click("ok_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("mp3_lst", kFile).size() == 8; })) << program.Rows("mp3_lst").size();
  EXPECT_EQ(program.Rows("mp3_lst", kFile), before);
  EXPECT_EQ(program.Text("path_txt"), album_.wstring());

  program.Click("browse_btn");  // and thinks better of it
  program.Window("Choixrecoldir");
  Press(VK_ESCAPE);
  ASSERT_TRUE(Until([&] { return !program.Shows("Choixrecoldir"); }));
  EXPECT_EQ(program.Rows("mp3_lst", kFile), before);

  program.Click("go_btn");
  program.Window("AskQuery");
  program.Fill("query_txt", L"harbour lights");
  Picture(" 2 words");
  EXPECT_FALSE(program.Enabled("browse_btn")) << "another form is open";
  Press(VK_RETURN);
  ASSERT_TRUE(Until([&] { return !program.Rows("resalb_lst").empty() && program.HasKeyboard("resalb_lst"); }));
  Picture(" 3 results");
  Press(VK_RETURN);  // the first hit is selected
  ASSERT_TRUE(Until([&] { return program.Rows("mp3_lst", kTrack)[1] == L"[02] Tin Roof Rain"; }));
  ASSERT_TRUE(Until([&] { return program.Enabled("go_btn"); }));  // no longer busy
  EXPECT_EQ(program.Text("artist_txt"), L"The Paper Lanterns ");
  EXPECT_EQ(program.Text("album_txt"), L"Harbour Lights");
  Picture(" 4 disc");

  // A held key confirms the order, but doesn't go on to what the same key does in the window behind.
  program.Click("autosort_btn");
  program.Window("Autosort");
  program.Click("search_btn");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Picture(" 5 sorted");
  Hold('A', VK_MENU);
  ASSERT_TRUE(Until([&] { return !program.Shows("Autosort"); }));
  EXPECT_FALSE(Until([&] { return NamesIn(album_) != before || program.Shows("summary"); }, 1000));
  program.ClickRow("mp3_lst", 0);
  Type(L"a");  // nor does a bare letter
  EXPECT_FALSE(Until([&] { return NamesIn(album_) != before || program.Shows("summary"); }, 1000));

  program.Click("apply_btn");
  program.Window("AskTagStyle");
  Picture(" 6 style");
  program.Click("standard_btn");
  program.Window("summary");
  EXPECT_EQ(program.Text("heading_lbl"), L"Done.");
  EXPECT_TRUE(program.Text("text_lbl").starts_with(L"Files done: 8 of 8. Tagged: 8, renamed: 8, skipped: 0."));
  Picture(" 7 applied");
  Press(VK_RETURN);
  if (const fs::path kept = PathFrom(L"TAGRIX_ALBUM"); !kept.empty()) fs::copy(album_, kept);

  const std::vector<std::wstring> after = NamesIn(album_);
  ASSERT_EQ(after.size(), 9U);  // and the playlist
  const fs::path second = album_ / L"The Paper Lanterns - 02 - Tin Roof Rain.mp3";
  ASSERT_TRUE(fs::exists(second));
  const std::string bytes = Bytes(second);
  EXPECT_EQ(bytes.substr(0, 3), "ID3");
  EXPECT_EQ(bytes.substr(bytes.size() - 128, 16), "TAGTin Roof Rain");
  EXPECT_NE(bytes.find(std::string(1024, '\0')), std::string::npos) << "no padding";
  EXPECT_EQ(program.Rows("mp3_lst", kNewName), std::vector<std::wstring>(8, L"tagged, renamed"));

  program.Click("undo_btn");
  ASSERT_TRUE(Until([&] {
    const auto names = NamesIn(album_);
    return std::includes(names.begin(), names.end(), before.begin(), before.end());
  }));
  Picture(" 8 undone");
}

TEST_F(AlbumRoadTest, WhoSkipsAutoSortIsAskedBeforeTheTitlesGoWrong) {
  const std::vector<std::wstring> before = NamesIn(album_);
  SetSetting(L"TagStyle", L"classic");
  const Program& program = StartWithDisc(L"harbour lights");
  Picture(" 1 wrong order");

  program.Click("apply_btn");
  program.Window("question");
  Picture(" 2 question");
  Press(VK_ESCAPE);
  ASSERT_TRUE(Until([&] { return !program.Shows("question"); }));
  EXPECT_EQ(NamesIn(album_), before);

  program.Click("apply_btn");
  program.Window("question");
  Press(VK_RETURN);  // Auto Sort first
  program.Window("Autosort");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Press(VK_RETURN);
  program.Window("summary");
  Press(VK_RETURN);
  const std::string bytes = Bytes(album_ / L"The Paper Lanterns - 02 - Tin Roof Rain.mp3");
  EXPECT_EQ(bytes.substr(std::max<std::size_t>(bytes.size(), 128) - 128, 16), "TAGTin Roof Rain");
  Picture(" 3 applied");
}

TEST_F(AlbumRoadTest, FindsTheAlbumInEverySource) {
  const Program& program = Start();
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  program.Click("ok_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("mp3_lst").size() == 8; }));
  for (const char key : {'M', 'G'}) {
    program.Click("go_btn");
    if (key == 'G') program.Answer(IDYES);  // what the other source gave may go
    program.Window("AskQuery");
    program.Click("source_cmb");
    Press(static_cast<WORD>(key));
    program.Fill("query_txt", L"harbour lights");
    Picture(std::string(" ") + key);
    program.Click("ok_btn");
    ASSERT_TRUE(Until([&] { return !program.Rows("resalb_lst").empty(); }));
    program.Click("fetch_btn");
    ASSERT_TRUE(Until([&] {
      return program.Rows("mp3_lst", kTrack)[1] == L"[02] Tin Roof Rain" &&
             program.Text("artist_txt") == L"The Paper Lanterns";
    })) << testing::PrintToString(program.Text("artist_txt"));
  }
}

}  // namespace
}  // namespace tagrix::ui
