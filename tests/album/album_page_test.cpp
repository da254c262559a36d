#include "album/album_page.h"

#include <gtest/gtest.h>

#include <map>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

void Count(const Node& node, std::map<std::string, int>& places) {
  if (node.control != nullptr) ++places[node.control->Name()];
  for (const Node& child : node.children) Count(child, places);
}

TEST(AlbumPage, PlacesEveryControlOnce) {
  AlbumPage page;
  std::map<std::string, int> places;
  Count(AlbumLayout(page), places);
  EXPECT_EQ(places.size(), 39u);
  for (const auto& [name, count] : places) EXPECT_EQ(count, 1) << name;
}

TEST(AlbumPage, StartsWithTheStepsThatCanBeTaken) {
  TestContext test;
  AlbumPage page;
  InitAlbumPage(page, test.context);
  TranslateAlbumPage(page, test.context);
  for (const Button* button : {&page.browse_btn, &page.go_btn, &page.autosort_btn, &page.ghost_btn}) {
    EXPECT_TRUE(button->Enabled()) << button->Name();
  }
  for (const Button* button : {&page.fetch_btn, &page.apply_btn, &page.more_btn, &page.undo_btn, &page.info_btn}) {
    EXPECT_FALSE(button->Enabled()) << button->Name();
  }
  EXPECT_EQ(page.go_btn.Text(), L"1 - <1>");
  EXPECT_EQ(page.fetch_btn.Text(), L"2 - <2>");
  EXPECT_EQ(page.apply_btn.Text(), L"3 - <4>");
  EXPECT_EQ(page.test_lbl.Text(), L"Artist - Album - 01 - Track01");
  EXPECT_EQ(page.pls_lbl.Text(), L"Album");
}

// The whole road by the page's own controls, from the folder to the undo.
TEST(AlbumPage, NamesAnAlbum) {
  TestContext test;
  for (const wchar_t* name : {L"x.mp3", L"y.mp3"}) test.files.Put(L"C:\\M\\Band - Live\\" + std::wstring(name));
  test.context.settings.Put(L"LastDir", L"C:\\M\\Band - Live");
  test.context.settings.Put(L"Pattern", L"%6 %2");
  test.socket.serve = [](const std::string& request) -> std::string {
    if (request.find("cddb+read+rock+0a0b0c0d") != request.npos) {
      return "HTTP/1.0 200 OK\r\n\r\n210 rock 0a0b0c0d\r\n# Track frame offsets:\r\n#\t150\r\n#\t9000\r\n#\r\n"
             "# Disc length: 240 seconds\r\nDTITLE=Band / Live\r\nDYEAR=1999\r\nTTITLE0=One\r\nTTITLE1=Two\r\n.\r\n";
    }
    return "HTTP/1.0 200 OK\r\n\r\n<a href=\"http://www.freedb.org/freedb_search_fmt.php?cat=rock&id=0a0b0c0d\">"
           "Band / Live</a>";
  };
  AlbumPage page;
  InitAlbumPage(page, test.context);
  test.prompts.dialogs = {[](Form& form) { Find<Button>(form.layout, "ok_btn").Click(); },
                          [](Form& form) { form.defaultButton->Click(); }};
  page.browse_btn.Click();
  page.go_btn.Click();
  ASSERT_EQ(page.resalb_lst.Count(), 1);
  page.resalb_lst.DoubleClickItem(0);
  ASSERT_EQ(page.tracks_lst.Count(), 2);

  page.mp3_lst.ClickItem(1);
  page.mp3_lst.PressKey(ListKey::MoveUp);
  page.mp3_lst.Drag(0, 1);
  page.mp3_lst.Drag(1, 0);
  page.ID3v1_chk.Click();
  page.ID3v2_chk.Click();
  page.apply_btn.Click();
  EXPECT_EQ(test.files.AllFiles(),
            (std::vector<std::wstring>{L"C:\\M\\Band - Live\\01 One.mp3", L"C:\\M\\Band - Live\\02 Two.mp3",
                                       L"C:\\M\\Band - Live\\Live.m3u"}));
  page.undo_btn.Click();
  EXPECT_EQ(page.mp3_lst.ItemText(0), L"y.mp3");
  EXPECT_TRUE(test.files.Has(L"C:\\M\\Band - Live\\x.mp3"));
}

}  // namespace
}  // namespace tagrix
