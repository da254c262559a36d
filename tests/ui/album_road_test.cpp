// The whole way from a folder of unnamed MP3 files to a tagged album and back, with a real disc server.
#include <algorithm>
#include <cstdlib>
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
    SetSetting(L"UseProxy", L"1");
    SetSetting(L"ProxyName", L"127.0.0.1");
    const std::string port = std::getenv("TAGRIX_PROXY_PORT");
    SetSetting(L"ProxyPort", std::wstring(port.begin(), port.end()));
    SetSetting(L"AutoUpd", L"0");
    SetSetting(L"Pattern", L"%1 - %6 - %2");
  }

  void Browse(const Program& program) {
    program.Click("browse_btn");
    program.Window("Choixrecoldir");
    Picture(" 1 folder");
    program.Click("ok_btn");
    ASSERT_TRUE(Until([&] { return program.Rows("mp3_lst").size() == 8; })) << program.Rows("mp3_lst").size();
  }
  void Search(const Program& program, const std::wstring& words) {
    program.Click("go_btn");
    program.Window("AskQuery");
    program.Fill("query_txt", words);
    Picture(" 2 words");
    EXPECT_FALSE(program.Enabled("browse_btn")) << "another form is open";
    Press(VK_RETURN);
    ASSERT_TRUE(Until([&] { return !program.Shows("AskQuery"); }));
  }
  void SortByTime(const Program& program) {
    program.Click("autosort_btn");
    program.Window("Autosort");
    program.Click("search_btn");
    ASSERT_TRUE(Until([&] { return program.Enabled("ok_btn"); }, 60'000));
    Picture(" 5 sorted");
    program.Click("ok_btn");
    ASSERT_TRUE(Until([&] { return !program.Shows("Autosort"); }));
  }

  fs::path album_;
};

TEST_F(AlbumRoadTest, NamesAndTagsAnAlbumAndTakesItBack) {
  const std::vector<std::wstring> before = NamesIn(album_);
  const Program& program = Start();
  Browse(program);
  EXPECT_EQ(program.Rows("mp3_lst"), before);
  EXPECT_EQ(program.Text("path_txt"), album_.wstring());

  Search(program, L"harbour lights");
  ASSERT_TRUE(Until([&] { return !program.Rows("resalb_lst").empty(); }));
  Picture(" 3 results");
  program.ClickRow("resalb_lst", 0);
  program.Click("fetch_btn");
  ASSERT_TRUE(Until([&] { return program.Rows("tracks_lst").size() == 8; }));
  EXPECT_EQ(program.Rows("tracks_lst")[1], L"[02] Tin Roof Rain");
  EXPECT_EQ(program.Text("artist_txt"), L"The Paper Lanterns ");
  EXPECT_EQ(program.Text("album_txt"), L"Harbour Lights");
  Picture(" 4 disc");

  SortByTime(program);
  if (!program.Ticked("ren_chk")) program.Click("ren_chk");
  for (const char* option : {"pls_chk", "ID3v1_chk", "ID3v2_chk"}) {
    if (!program.Ticked(option)) program.Click(option);
  }
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
  EXPECT_EQ(bytes.substr(bytes.size() - 128, 33),
            std::string("TAGTin Roof Rain") + bytes.substr(bytes.size() - 112, 17));

  program.Click("undo_btn");
  ASSERT_TRUE(Until([&] {
    const auto names = NamesIn(album_);
    return std::includes(names.begin(), names.end(), before.begin(), before.end());
  }));
  Picture(" 7 undone");
}

TEST_F(AlbumRoadTest, ASearchWithoutResultsSaysSoAndGoesOn) {
  const Program& program = Start();
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  Press(VK_ESCAPE);
  ASSERT_TRUE(Until([&] { return program.Enabled("browse_btn"); }));
  EXPECT_TRUE(program.Rows("mp3_lst").empty());
  Browse(program);
  Search(program, L"nothing is called like this");
  EXPECT_FALSE(program.Message().empty());
  program.Answer(IDOK);
  EXPECT_FALSE(program.Enabled("fetch_btn"));
  EXPECT_TRUE(Until([&] { return program.Enabled("page_btn3"); }));
}

}  // namespace
}  // namespace tagrix::ui
