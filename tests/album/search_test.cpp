// Where the album page searches, what it shows of an answer, and what it says of one that didn't come.
#include "album/search.h"

#include <gtest/gtest.h>

#include "album/fetch.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

// Answers what it is told to, and writes down what it is asked.
struct ScriptedSource : DiscSource {
  SourceReply Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                     Progress&) override {
    during();
    asked.push_back((query.any ? L"any of " : L"") + query.words);
    if (!hits.empty()) found(hits);
    return reply;
  }
  SourceReply Read(const DiscHit& hit, std::optional<Disc>& read, Progress&) override {
    during();
    asked.push_back(hit.category + L"/" + hit.id);
    read = disc;
    return reply;
  }
  std::function<void()> during = [] {};
  SourceReply reply;
  std::vector<DiscHit> hits;
  std::optional<Disc> disc;
  Texts asked;
};

struct AlbumSearch : testing::Test, TestContext {
  AlbumSearch() {
    album.session.files.push_back({L"1.mp3"});
    album.mp3_lst.Add(L"1.mp3");
    album.apply_btn.SetEnabled(false);
    album.fetch_btn.SetEnabled(false);
    brainz.during = freeDb.during = [this] {
      status.push_back(context.status_lbl.Text());
      EXPECT_TRUE(AtWork(context));
      for (const Button* button : {&album.go_btn, &album.fetch_btn, &album.apply_btn, &album.more_btn}) {
        EXPECT_FALSE(button->Enabled()) << button->Name();
      }
    };
  }
  void Go() {
    RunCommand(context, [&] { GoClicked(album, context, sources); });
  }
  // Presses Search, chooses the source at that position and presses OK.
  void Search(int position) {
    prompts.dialogs.emplace_back([position](Form& form) {
      Find<TextBox>(form.layout, "query_txt").Type(L" words ");
      Find<ComboBox>(form.layout, "source_cmb").Choose(position);
      form.defaultButton->Click();
    });
    Go();
  }
  void Fetch(int row = 0) {
    album.resalb_lst.SelectOnly(row);
    RunCommand(context, [&] { FetchAlbum(album, context, sources); });
  }

  AlbumPage album;
  ScriptedSource brainz, freeDb;
  SourceList sources{{L"MusicBrainz", brainz}, {kFreeDbName, freeDb}};
  Texts status;  // while a source was asked
};

TEST_F(AlbumSearch, AsksForWordsAndASource) {
  const struct {
    const wchar_t *folder, *stored;
    const wchar_t *words, *source;  // shown
    const wchar_t* typed;
    int chosen;
    bool ok;
    const wchar_t *after, *storedAfter;
  } table[] = {
      {L"C:\\Music", L"", L"", L"MusicBrainz", L"words", 1, false, L"", L""},
      {L"C:\\Music\\A - B", L"", L"A - B", L"MusicBrainz", L"A - B", 1, true, L"A - B", L"FreeDB"},
      {L"C:\\Music\\", L"FreeDB", L"", L"<256>", L"  a  b ", 0, true, L"a  b", L"MusicBrainz"},
      {L"C:\\Music\\", L"gone", L"", L"MusicBrainz", L"other", 1, false, L"a  b", L"gone"},  // all stays
  };
  for (const auto& expected : table) {
    context.settings.Put(setting::kSource, expected.stored);
    album.session.folder = expected.folder;
    prompts.dialogs.emplace_back([&](Form& form) {
      auto& words = Find<TextBox>(form.layout, "query_txt");
      auto& source = Find<ComboBox>(form.layout, "source_cmb");
      EXPECT_EQ(words.Text(), expected.words);
      EXPECT_EQ(source.Count(), 2);
      EXPECT_EQ(source.Text(), expected.source);
      words.Type(expected.typed);
      source.Choose(expected.chosen);
      expected.ok ? form.defaultButton->Click() : form.RequestClose();
      EXPECT_TRUE(form.Closing());
    });
    album.resalb_lst.Add(L"earlier");
    Go();
    EXPECT_EQ(album.resalb_lst.Count(), expected.ok ? 0 : 1) << "a dialog that was closed changes nothing";
    EXPECT_FALSE(IsBusy(context));
    album.resalb_lst.Clear();
    EXPECT_EQ(album.session.words, expected.after);
    EXPECT_EQ(registry.GetRegValue(Hive::CurrentUser, kSettingsKey, L"Source"), expected.storedAfter);
  }
  EXPECT_EQ(freeDb.asked, Texts{L"A - B"});
  EXPECT_EQ(brainz.asked, Texts{L"a  b"});
}

TEST_F(AlbumSearch, ListsHitsAndAsksTheSameSourceForMoreAndForTheDisc) {
  album.artist_txt.SetText(L"before");
  album.tracks_lst.Add(L"[01] before");
  freeDb.hits = {{L"A / B", L"rock", L"1"}, {L"東 / 京", L"jazz", L"3"}};
  Search(1);
  EXPECT_EQ(album.resalb_lst.Texts(), (Texts{L"A / B", L"東 / 京"}));
  EXPECT_EQ(album.resalb_lst.SelectedIndex(), 0);
  EXPECT_TRUE(album.go_btn.Enabled() && album.fetch_btn.Enabled() && album.more_btn.Enabled());
  EXPECT_FALSE(album.apply_btn.Enabled() || IsBusy(context));
  EXPECT_EQ(album.artist_txt.Text(), L"");
  EXPECT_EQ(album.tracks_lst.Count(), 0);

  album.apply_btn.SetEnabled(true);
  context.settings.Put(setting::kSource, L"MusicBrainz");
  RunCommand(context, [&] { MoreClicked(album, context, sources); });
  EXPECT_TRUE(prompts.questions.empty());
  EXPECT_EQ(album.resalb_lst.Count(), 2);  // replaced
  EXPECT_FALSE(album.more_btn.Enabled());
  Fetch(1);
  Fetch(-1);
  EXPECT_EQ(freeDb.asked, (Texts{L"words", L"any of words", L"jazz/3"}));
  Search(0);
  EXPECT_EQ(brainz.asked, Texts{L"words"});
  EXPECT_EQ(status[2], L"Contacting FreeDB servers....");
  EXPECT_EQ(status[3], L"<257> MusicBrainz");
}

TEST_F(AlbumSearch, StaysBusyWhenItRefuses) {
  album.session.files.clear();
  Go();
  EXPECT_EQ(prompts.messages, Texts{TestText(message::kNoFiles)});
  EXPECT_TRUE(IsBusy(context) && prompts.shown.empty());

  album.session.files.push_back({L"1.mp3"});
  album.resalb_lst.Add(L"earlier");
  album.apply_btn.SetEnabled(true);
  prompts.answers = {false};
  Go();
  EXPECT_EQ(prompts.questions, Texts{TestText(message::kDiscardAlbum)});
  EXPECT_TRUE(IsBusy(context) && album.apply_btn.Enabled() && album.go_btn.Enabled());
  EXPECT_EQ(album.resalb_lst.Count(), 1);
}

TEST_F(AlbumSearch, EachEndIsToldApartAndLeavesNothingToApply) {
  const struct {
    SourceReply reply;
    Texts ofSearch, ofRead;
  } table[] = {
      {{Answer::Given}, {L"<62>"}, {L"<54>"}},
      {{Answer::Cancelled}, {}, {}},
      {{Answer::NotReached}, {L"<258> MusicBrainz"}, {L"<258> MusicBrainz"}},
      {{Answer::Refused, L"503 Slow down"}, {L"<259> MusicBrainz 503 Slow down"}, {L"<259> MusicBrainz 503 Slow down"}},
      {{Answer::Refused}, {L"<260> MusicBrainz"}, {L"<54>"}},
      {{Answer::NotSecure}, {L"<269> MusicBrainz"}, {L"<269> MusicBrainz"}},
  };
  for (const auto& [reply, ofSearch, ofRead] : table) {
    prompts.messages.clear();
    brainz.reply = reply;
    Search(0);
    EXPECT_EQ(prompts.messages, ofSearch);
    EXPECT_FALSE(album.fetch_btn.Enabled());
    EXPECT_TRUE(album.go_btn.Enabled() && !IsBusy(context));

    brainz.reply = {};
    brainz.hits = {{L"A / B", L"rock", L"1"}};
    Search(0);
    brainz.disc = Disc{L"A", L"B", L"rock", L"1998", {{L"One"}}};
    Fetch();
    EXPECT_TRUE(album.apply_btn.Enabled());
    prompts.messages.clear();
    brainz.hits.clear();
    brainz.disc.reset();
    brainz.reply = reply;
    Fetch();
    EXPECT_EQ(prompts.messages, ofRead);
    EXPECT_EQ(album.album_txt.Text(), L"B");
    EXPECT_EQ(TrackCount(album.session) + album.tracks_lst.Count(), 0);
    EXPECT_FALSE(album.apply_btn.Enabled());
  }
}

TEST_F(AlbumSearch, GoesOnAfterAFailure) {
  album.session.hits = {{L"A / B", L"rock", L"1"}};
  album.resalb_lst.Add(L"A / B");
  brainz.during = [] { throw Failure(Action::Connect, L"", Cause::PortTooHigh); };
  for (const bool search : {false, true}) {
    album.apply_btn.SetEnabled(true);
    search ? Search(0) : Fetch();
    EXPECT_EQ(prompts.messages.size(), search ? 2U : 1U);
    EXPECT_TRUE(album.go_btn.Enabled());
    EXPECT_FALSE(album.apply_btn.Enabled() || IsBusy(context));
  }
}

TEST_F(AlbumSearch, ShowsTheDiscAndOffersFakesForMissingFiles) {
  album.session.hits = {{L"A / B", L"rock", L"1"}};
  album.resalb_lst.Add(L"A / B");
  brainz.disc = Disc{L"Trio ", L"Café", L"jazz", L"1998", {{L"One", 75}, {L"Two"}}};
  prompts.answers = {false, true};
  Fetch();
  EXPECT_EQ(album.artist_txt.Text(), L"Trio ");
  EXPECT_EQ(album.album_txt.Text(), L"Café");
  EXPECT_EQ(album.year_txt.Text(), L"1998");
  EXPECT_EQ(album.genre_txt.Text(), L"jazz");
  EXPECT_EQ(album.tracks_lst.Texts(), (Texts{L"[01] One", L"[02] Two"}));
  EXPECT_EQ(album.session.disc.tracks[0].frames, 75);
  EXPECT_TRUE(album.apply_btn.Enabled() && album.go_btn.Enabled());
  EXPECT_EQ(FileCount(album.session), 1);

  brainz.disc->year.reset();
  brainz.disc->tracks.resize(3);
  Fetch();
  EXPECT_EQ(album.year_txt.Text(), L"2004");  // today's
  EXPECT_EQ(FileCount(album.session), 3);
  EXPECT_TRUE(album.session.files.at(2).fake);
  Fetch();  // enough files: no question
  EXPECT_EQ(prompts.questions, Texts(2, TestText(message::kOfferFakes)));

  album.tracks_lst.SelectOnly(1);
  for (const bool ok : {false, true}) {
    prompts.dialogs.emplace_back([ok](Form& form) {
      EXPECT_EQ(Find<TextBox>(form.layout, "name_txt").Text(), L"Two");
      Find<TextBox>(form.layout, "name_txt").Type(L" Nine ");
      (ok ? form.defaultButton : form.cancelButton)->Click();
    });
    EditTrack(album, context);
    EXPECT_EQ(album.tracks_lst.Texts(), (Texts{L"[01] One", ok ? L"[02]Nine" : L"[02] Two", L"[03] "}));
  }
  album.tracks_lst.SelectOnly(-1);
  EditTrack(album, context);  // without a selection nothing happens
}

}  // namespace
}  // namespace tagrix
