// The whole way from a folder of unnamed MP3 files to a tagged album and back, with a real disc server.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

namespace fs = std::filesystem;

class AlbumRoadTest : public UiTest {
 protected:
  void SetUp() override {
    UiTest::SetUp();
    if (std::getenv("TAGRIX_PROXY_PORT") == nullptr) GTEST_SKIP() << "No disc server or no sample album is there.";
    album_ = folder_ / "Harbour";
    fs::copy(PathFrom(L"TAGRIX_SAMPLE"), album_);
    SetSetting(L"LastDir", album_.wstring());
    SetSetting(L"Source", L"FreeDB");
    SetSetting(L"UseProxy", L"1");
    SetSetting(L"ProxyName", L"127.0.0.1");
    const std::string port = std::getenv("TAGRIX_PROXY_PORT");
    SetSetting(L"ProxyPort", std::wstring(port.begin(), port.end()));
    SetSetting(L"MusicBrainzServer", L"http://127.0.0.1:" + std::wstring(port.begin(), port.end()));
    SetSetting(L"AutoUpd", L"0");
    SetSetting(L"Pattern", L"%1 - %6 - %2");
  }

  fs::path album_;
};

TEST_F(AlbumRoadTest, NamesAndTagsAnAlbumAndTakesItBack) {
  const std::vector<std::wstring> before = NamesIn(album_);
  const Program& program = Start();
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  Press(VK_ESCAPE);
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  Picture(" 1 folder");
  program.Click("ok_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("mp3_lst").size() == 8; })) << program.Rows("mp3_lst").size();
  EXPECT_EQ(program.Rows("mp3_lst"), before);
  EXPECT_EQ(program.Text("path_txt"), album_.wstring());

  program.Click("go_btn");
  program.Window("AskQuery");
  program.Fill("query_txt", L"harbour lights");
  Picture(" 2 words");
  EXPECT_FALSE(program.Enabled("browse_btn")) << "another form is open";
  Press(VK_RETURN);
  ASSERT_TRUE(Until([&] { return !program.Rows("resalb_lst").empty(); }));
  Picture(" 3 results");
  program.ClickRow("resalb_lst", 0);
  program.Click("fetch_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("tracks_lst").size() == 8; }));
  EXPECT_EQ(program.Rows("tracks_lst")[1], L"[02] Tin Roof Rain");
  EXPECT_EQ(program.Text("artist_txt"), L"The Paper Lanterns ");
  EXPECT_EQ(program.Text("album_txt"), L"Harbour Lights");
  Picture(" 4 disc");

  program.Click("autosort_btn");
  program.Window("Autosort");
  program.Click("search_btn");
  ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }));
  Picture(" 5 sorted");
  program.Click("ok_btn");
  program.Click("apply_btn");
  EXPECT_EQ(program.Message(), L"Done.");
  program.Answer(IDOK);
  Picture(" 6 applied");
  if (const fs::path kept = PathFrom(L"TAGRIX_ALBUM"); !kept.empty()) fs::copy(album_, kept);

  const std::vector<std::wstring> after = NamesIn(album_);
  ASSERT_EQ(after.size(), 9U);  // and the playlist
  const fs::path second = album_ / L"The Paper Lanterns - 02 - Tin Roof Rain.mp3";
  ASSERT_TRUE(fs::exists(second));
  const std::string bytes = Bytes(second);
  EXPECT_EQ(bytes.substr(0, 3), "ID3");
  EXPECT_EQ(bytes.substr(bytes.size() - 128, 16), "TAGTin Roof Rain");

  program.Click("undo_btn");
  ASSERT_TRUE(Until([&] {
    const auto names = NamesIn(album_);
    return std::includes(names.begin(), names.end(), before.begin(), before.end());
  }));
  Picture(" 7 undone");
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
    program.ClickRow("resalb_lst", 0);
    program.Click("fetch_btn");
    ASSERT_TRUE(Until([&] { return program.Rows("tracks_lst").size() == 8; }));
    EXPECT_EQ(program.Rows("tracks_lst")[1], L"[02] Tin Roof Rain");
    EXPECT_EQ(program.Text("artist_txt"), L"The Paper Lanterns");
  }
}

}  // namespace
}  // namespace tagrix::ui
