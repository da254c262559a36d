#include "album/search.h"

#include <gtest/gtest.h>

#include "album/fetch.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

std::string Link(const std::string& rest) {
  return "<a href=\"http://www.freedb.org/freedb_search_fmt.php?cat=" + rest + "</a>\r\n";
}

// The album page before a server that answers every request with `page`.
struct AlbumSearch : testing::Test {
  AlbumSearch() {
    album.mp3_lst.Add(L"1.mp3");
    album.path_txt.SetText(L"C:\\Music\\The Lanterns");
    album.fetch_btn.SetEnabled(false);
    album.apply_btn.SetEnabled(false);
    test.socket.serve = [this](const std::string&) {
      EXPECT_TRUE(IsBusy(test.context));
      for (const Button* button : {&album.go_btn, &album.fetch_btn, &album.apply_btn, &album.more_btn}) {
        EXPECT_FALSE(button->Enabled()) << button->Name();
      }
      return "HTTP/1.0 200 OK\r\n\r\n" + page;
    };
  }
  void Go() {
    RunCommand(test.context, [&] { GoClicked(album, test.context, http); });
  }
  void PressOk() {
    test.prompts.dialogs.emplace_back([](Form& form) { form.defaultButton->Click(); });
  }
  std::string Asked() {
    const std::string& request = test.socket.requests.back();
    const size_t start = request.find("words=") + 6;
    return request.substr(start, request.find('&') - start);
  }

  TestContext test;
  AlbumPage album;
  HttpClient http{test.context};
  std::string page =
      Link("rock&id=1\">\xC9t\xE9 / B") + Link("rock&id=2\"><font size=-1>A / B") + Link("jazz&id=3\">C / D");
};

TEST_F(AlbumSearch, ListsHitsAndWidensWithoutAsking) {
  album.artist_txt.SetText(L"before");
  album.tracks_lst.Add(L"[01] before");
  test.context.cancelled = true;  // from an operation before this one
  PressOk();
  Go();
  EXPECT_EQ(Asked(), "The+Lanterns");
  EXPECT_EQ(album.resalb_lst.Texts(), (Texts{L"Été / B", L"C / D"}));
  EXPECT_EQ(album.categ_lst.Texts(), (Texts{L"rock", L"jazz"}));
  EXPECT_EQ(album.discid_lst.Texts(), (Texts{L"1", L"3"}));
  EXPECT_TRUE(album.go_btn.Enabled() && album.fetch_btn.Enabled() && album.more_btn.Enabled());
  EXPECT_FALSE(album.apply_btn.Enabled());
  EXPECT_EQ(album.artist_txt.Text(), L"");
  EXPECT_EQ(album.tracks_lst.Count(), 0);
  EXPECT_EQ(test.socket.State(), SocketState::Closed);
  EXPECT_EQ(test.context.status_lbl.Text(), L"");
  EXPECT_FALSE(IsBusy(test.context));

  album.apply_btn.SetEnabled(true);
  RunCommand(test.context, [&] { MoreClicked(album, test.context, http); });
  EXPECT_TRUE(test.prompts.questions.empty() && test.prompts.messages.empty());
  EXPECT_EQ(Asked(), "The+OR+Lanterns");
  EXPECT_EQ(album.resalb_lst.Count(), 2);  // replaced
  EXPECT_FALSE(album.more_btn.Enabled());
}

TEST_F(AlbumSearch, CountsTheDownloadFromItsStartAndSaysWhenNothingIsFound) {
  page = std::string(2048, ' ');
  for (std::size_t i = 1; i <= 2; ++i) {
    Texts shown;
    test.events.eachTime = [&] { shown.push_back(test.context.status_lbl.Text()); };
    PressOk();
    Go();
    EXPECT_EQ(shown.front(), L"Contacting FreeDB servers....");
    EXPECT_NE(std::find(shown.begin(), shown.end(), L"Downloading : 2.02 Kb"), shown.end());
    EXPECT_EQ(test.prompts.messages, Texts(i, TestText(message::kNothingFound)));
    EXPECT_FALSE(album.fetch_btn.Enabled());
  }
}

TEST_F(AlbumSearch, StopsQuietlyWithoutWords) {
  Go();  // the dialog is closed
  EXPECT_TRUE(test.socket.requests.empty());
  EXPECT_TRUE(album.go_btn.Enabled());
  EXPECT_FALSE(album.fetch_btn.Enabled() || album.more_btn.Enabled() || IsBusy(test.context));
  // Closing it later keeps the words of the last search.
  album.query_txt.SetText(L" last  words ");
  Go();
  EXPECT_EQ(Asked(), "last++words");
}

TEST_F(AlbumSearch, StaysBusyWhenItRefuses) {
  album.mp3_lst.Clear();
  Go();
  EXPECT_EQ(test.prompts.messages, Texts{TestText(message::kNoFiles)});
  EXPECT_TRUE(IsBusy(test.context) && test.prompts.shown.empty());

  album.mp3_lst.Add(L"1.mp3");
  album.resalb_lst.Add(L"earlier");
  album.apply_btn.SetEnabled(true);
  test.prompts.answers = {false};
  Go();
  EXPECT_EQ(test.prompts.questions, Texts{TestText(message::kDiscardAlbum)});
  EXPECT_TRUE(IsBusy(test.context) && album.apply_btn.Enabled() && album.go_btn.Enabled());
  EXPECT_EQ(album.resalb_lst.Count(), 1);

  test.context.settings.Put(L"HTTPPort", L"70000");
  PressOk();  // and Yes: after a failure nothing is left to apply, and a new search can start
  Go();
  EXPECT_EQ(test.prompts.messages.size(), 2u);
  EXPECT_TRUE(album.go_btn.Enabled());
  EXPECT_FALSE(album.apply_btn.Enabled() || album.fetch_btn.Enabled() || IsBusy(test.context));
}

struct AlbumFetch : AlbumSearch {
  AlbumFetch() {
    for (const wchar_t* title : {L"A / B", L"C / D"}) album.resalb_lst.Add(title);
    for (const wchar_t* category : {L"rock", L"jazz"}) album.categ_lst.Add(category);
    for (const wchar_t* id : {L"1", L"3"}) album.discid_lst.Add(id);
    album.resalb_lst.SelectOnly(1);
    album.fetch_btn.SetEnabled(true);
    page = Record(2, "DYEAR=1998\r\n");
  }
  static std::string Record(int tracks, const std::string& year) {
    std::string lines = "210 jazz 3\r\n# Track frame offsets:\r\n";
    for (int i = 0; i < tracks; ++i) lines += "# " + std::to_string(150 + 7500 * i) + "\r\n";
    lines += "# Disc length: 1002 seconds\r\nDTITLE=Trio / Caf\xE9\r\n" + year;
    for (int i = 0; i < tracks; ++i) lines += "TTITLE" + std::to_string(i) + "=t" + std::to_string(i) + "\r\n";
    return lines + ".\r\n";
  }
  void Fetch() {
    RunCommand(test.context, [&] { FetchAlbum(album, test.context, http); });
  }
};

TEST_F(AlbumFetch, FillsTheDiscRecordAndOffersFakesForMissingFiles) {
  test.prompts.answers = {false, true};
  Fetch();
  EXPECT_TRUE(
      test.socket.requests.at(0).starts_with("GET http://gnudb.gnudb.org/~cddb/cddb.cgi?cmd=cddb+read+jazz+3&"));
  EXPECT_EQ(album.artist_txt.Text(), L"Trio ");
  EXPECT_EQ(album.album_txt.Text(), L"Café");
  EXPECT_EQ(album.year_txt.Text(), L"1998");
  EXPECT_EQ(album.genre_txt.Text(), L"jazz");
  EXPECT_EQ(album.new_lst.Texts(), (Texts{L"t0", L"t1"}));
  EXPECT_EQ(album.new_lst.Value(0), 7500);
  EXPECT_EQ(album.new_lst.Value(1), 1002 * 75 - 7650);
  EXPECT_EQ(album.tracks_lst.Texts(), (Texts{L"[01] t0", L"[02] t1"}));
  EXPECT_TRUE(album.apply_btn.Enabled() && album.go_btn.Enabled());
  EXPECT_EQ(album.mp3_lst.Count(), 1);

  page = Record(11, "");
  Fetch();
  EXPECT_EQ(test.prompts.questions, Texts(2, TestText(message::kOfferFakes)));
  EXPECT_EQ(album.mp3_lst.Count(), 11);
  EXPECT_EQ(album.mp3_lst.ItemText(10), kFakeTrack);
  EXPECT_EQ(album.tracks_lst.ItemText(9), L"[10] t9");
  EXPECT_EQ(album.year_txt.Text(), L"2004");  // today's
  Fetch();                                    // enough files: no question
  EXPECT_EQ(test.prompts.questions.size(), 2u);

  album.resalb_lst.SelectOnly(-1);
  Fetch();
  EXPECT_EQ(test.socket.requests.size(), 3u);
}

TEST_F(AlbumFetch, KeepsWhatWasThereWhenItFails) {
  album.mp3_lst.Add(L"2.mp3");
  Fetch();
  page = "401 No such CD entry in database.\r\n";
  Fetch();
  EXPECT_EQ(test.prompts.messages, Texts{TestText(message::kReadFailed)});
  EXPECT_EQ(album.album_txt.Text(), L"Café");
  EXPECT_EQ(album.new_lst.Count(), 0);
  EXPECT_FALSE(album.apply_btn.Enabled());
  album.apply_btn.SetEnabled(true);
  test.context.settings.Put(L"HTTPPort", L"70000");
  Fetch();
  EXPECT_FALSE(album.apply_btn.Enabled());
  EXPECT_TRUE(album.go_btn.Enabled() && album.fetch_btn.Enabled() && album.more_btn.Enabled());
}

}  // namespace
}  // namespace tagrix
