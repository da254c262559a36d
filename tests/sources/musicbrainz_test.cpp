#include "sources/musicbrainz.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"

namespace tagrix {
namespace {

using End = HttpsAnswer::End;
using musicbrainz::ParseReply;

HttpsAnswer Ok(std::string body) { return {End::Complete, 200, 0, std::move(body)}; }

// As the service answers a search, with what nobody here asks for left out.
const std::string kFound = R"({"created":"2024-05-01T12:00:00.000Z","count":3,"offset":0,"releases":[
  {"id":"aaaaaaaa-0000-4000-8000-000000000001","score":100,"count":3,"title":"Caf\u00e9 \ud83d\ude00","status":"Official",
   "artist-credit":[{"joinphrase":" & ","name":"Orvin","artist":{"id":"x","name":"Orvin Sr.","sort-name":"Orvin"}},
                    {"artist":{"id":"y","name":"The Band"}}],
   "release-group":{"id":"z","title":"Other","artist-credit":[{"name":"Nobody"}]},
   "date":"1998-05-04","country":"DE","track-count":27,
   "media":[{"format":"CD","disc-count":1,"track-count":14},{"format":"DVD-Video","track-count":1},{"track-count":12}]},
  {"id":"aaaaaaaa-0000-4000-8000-000000000002","title":"Plain","artist-credit":[{"name":"A"}],"country":null,
   "media":[{"format":null,"position":1,"track-count":9}]},
  {"id":"aaaaaaaa-0000-4000-8000-000000000003","title":"Bare","date":"????","media":[{}]}]})";

// As it answers a lookup.
const std::string kRelease =
    R"({"id":"aaaaaaaa-0000-4000-8000-000000000001","title":"Caf\u00e9","date":"1998","country":"DE",
  "artist-credit":[{"name":"Orvin","joinphrase":" & ","artist":{"name":"Orvin","genres":[{"name":"polka","count":99}]}},
                   {"name":"The Band","joinphrase":""}],
  "genres":[{"name":"rock","count":2},{"name":"trip hop","count":7},{"name":"jazz","count":7}],
  "media":[{"position":2,"format":"CD","title":"Bonus","track-count":5,"pregap":{"title":"Hidden","length":5000},
     "tracks":[
      {"position":1,"number":"1","title":"Own","length":200007,
       "artist-credit":[{"name":"Orvin","joinphrase":" & "},{"name":"The Band","joinphrase":""}],
       "recording":{"title":"Own mix",
                  "length" : 1, "artist-credit" : [ {"name" : "Somebody else", "joinphrase" : ""} ]
}
},
      {"title":"Guest","length":null,"artist-credit":[{"name":"G","joinphrase":" feat. "},{"name":"H"}],
       "recording":{"length":60000}},
      {"title":"Silent\u0000ly","recording":{"length":null}},
      {"title":"Wrong","length":"200","recording":{"length":-5}},
      {"title":"Endless","length":9223372036854775807}],
     "data-tracks":[{"title":"Video","length":7000}]
}]
})";

class MusicBrainz : public testing::Test {
 protected:
  MusicBrainz() {
    progress_.eachTime = [this] { test_.events.DoEvents(); };
    test_.events.eachTime = [this] { progress_.cancelled = ++rounds_ >= cancelAt_; };
  }
  SourceReply Search(const std::wstring& words = L"words", bool any = false) {
    hits_.clear();
    return source_.Search(
        {words, any}, [this](std::vector<DiscHit> hits) { hits_ = std::move(hits); }, progress_);
  }
  SourceReply Read(const std::wstring& number) {
    return source_.Read({L"", number, L"aaaaaaaa-0000-4000-8000-000000000001"}, disc_, progress_);
  }
  void Answers(HttpsAnswer answer) {
    https_.serve = [answer = std::move(answer)](const HttpsRequest&) { return answer; };
  }

  TestContext test_;
  FakeHttps https_{test_.events};
  QuietProgress progress_;
  int rounds_ = 0, cancelAt_ = 1'000'000;
  MusicBrainzSource source_{{https_, test_.events, test_.context.settings}};
  std::vector<DiscHit> hits_;
  std::optional<Disc> disc_;
};

TEST_F(MusicBrainz, EveryMediumIsAHit) {
  Answers(Ok(kFound));
  EXPECT_EQ(Search().answer, Answer::Given);
  const std::wstring first = L"aaaaaaaa-0000-4000-8000-000000000001",
                     cafe = L"Orvin & The Band / Caf\u00e9 \U0001F600 ";
  EXPECT_EQ(hits_, (std::vector<DiscHit>{{cafe + L"(1998, DE, CD 1 of 3, 14 tracks)", L"1", first},
                                         {cafe + L"(1998, DE, DVD-Video 2 of 3, 1 track)", L"2", first},
                                         {cafe + L"(1998, DE, Disc 3 of 3, 12 tracks)", L"3", first},
                                         {L"A / Plain (9 tracks)", L"1", L"aaaaaaaa-0000-4000-8000-000000000002"},
                                         {L"Bare", L"1", L"aaaaaaaa-0000-4000-8000-000000000003"}}));
}

TEST_F(MusicBrainz, AMediumIsADisc) {
  Answers(Ok(kRelease));
  EXPECT_EQ(Read(L"2").answer, Answer::Given);
  EXPECT_EQ(disc_, (Disc{L"Orvin & The Band",
                         L"Caf\u00e9",
                         L"trip hop",
                         L"1998",
                         {{L"Own", 15001},  // 15000.525
                          {L"G feat. H / Guest", 4500},
                          {L"Silently", 0},
                          {L"Wrong", 0},
                          {L"Endless", 150'000'000}}}));
  disc_.reset();
  EXPECT_EQ(Read(L"3").answer, Answer::Given);
  EXPECT_FALSE(disc_);
  Answers(Ok(R"({"id":"x","title":"Bare","media":[{"tracks":[]}]})"));
  Read(L"1");
  EXPECT_EQ(disc_, (Disc{L"", L"Bare", L"Unknown", L"", {}}));
}

TEST_F(MusicBrainz, WordsBecomeAQuery) {
  const struct {
    const wchar_t* words;
    bool any;
    const wchar_t* query;
  } table[] = {
      {L" Hey  Jude ", false, L"(release:hey OR artist:hey) AND (release:jude OR artist:jude)"},
      {L"Hey - Jude", true, L"(release:hey OR artist:hey) OR (release:jude OR artist:jude)"},
      {L"NOT OR", false, L"(release:not OR artist:not) AND (release:or OR artist:or)"},
      {LR"(+-&|!(){}[]^"~*?:\/)", false,
       LR"((release:\+\-\&\|\!\(\)\{\}\[\]\^\"\~\*\?\:\\\/ OR artist:\+\-\&\|\!\(\)\{\}\[\]\^\"\~\*\?\:\\\/))"},
      {L" - ", false, L""},
  };
  for (const auto& [words, any, query] : table) EXPECT_EQ(musicbrainz::ReleaseQuery(words, any), query);
  EXPECT_EQ(Search(L" ").answer, Answer::Given);
  EXPECT_TRUE(https_.requests.empty());
}

TEST_F(MusicBrainz, AsksTheServerOfTheSettingsAtMostOnceASecond) {
  Answers(Ok(kFound));
  std::vector<std::uint64_t> times;
  test_.events.eachTime = [&] {
    if (https_.requests.size() > times.size()) times.push_back(test_.events.ticks);
  };
  Search(L"caf\u00e9 & co", true);
  test_.context.settings.Put(setting::kMusicBrainzServer, L"http://127.0.0.1:8080/");
  test_.context.settings.Put(setting::kUseProxy, true);
  test_.context.settings.Put(setting::kProxyName, L"proxy");
  test_.context.settings.Put(setting::kProxyPort, 3128);
  Read(L"1");
  ASSERT_EQ(https_.requests.size(), 2U);
  EXPECT_EQ(https_.requests[0].url,
            L"https://musicbrainz.org/ws/2/release?query=%28release%3Acaf%C3%A9+OR+artist%3Acaf%C3%A9%29+OR+"
            L"%28release%3A%5C%26+OR+artist%3A%5C%26%29+OR+%28release%3Aco+OR+artist%3Aco%29&limit=50&fmt=json");
  EXPECT_EQ(https_.requests[0].userAgent, L"Tagrix/1.0.0 ( support@tagrix.example )");
  EXPECT_EQ(https_.requests[0].proxy, L"");
  EXPECT_EQ(https_.requests[1].url,
            L"http://127.0.0.1:8080/ws/2/release/aaaaaaaa-0000-4000-8000-000000000001"
            L"?inc=recordings+artist-credits+genres&fmt=json");
  EXPECT_EQ(https_.requests[1].proxy, L"proxy");
  EXPECT_EQ(https_.requests[1].proxyPort, 3128);
  ASSERT_EQ(times.size(), 2U);
  EXPECT_GE(times[1] - times[0], 1000U);
}

TEST_F(MusicBrainz, ARefusalIsNoDisc) {
  const std::string slowDown = R"({"error":"Slow down","help":"x"})";
  const struct {
    HttpsAnswer answer;
    Answer search, read;
    const wchar_t* words;
    std::size_t requests;  // of each
  } table[] = {
      {{End::NotReached}, Answer::NotReached, Answer::NotReached, L"", 1},
      {{End::NotSecure}, Answer::NotSecure, Answer::NotSecure, L"", 1},
      {{End::TooLong}, Answer::Refused, Answer::Refused, L"", 1},
      {Ok("<html><title>Log in</title></html>"), Answer::Refused, Answer::Refused, L"", 1},
      {Ok(slowDown), Answer::Refused, Answer::Refused, L"Slow down", 1},
      {Ok(R"({"count":0,"releases":[]})"), Answer::Given, Answer::Refused, L"", 1},
      {{End::Complete, 404, 0, R"({"error":"Not Found"})"}, Answer::Refused, Answer::Refused, L"Not Found", 1},
      {{End::Complete, 500, 0, kFound}, Answer::Refused, Answer::Refused, L"", 1},
      {{End::Complete, 503, 3, slowDown}, Answer::Refused, Answer::Refused, L"Slow down", 2},
      {{End::Complete, 429, 0, "busy"}, Answer::Refused, Answer::Refused, L"", 2},
      {{End::Complete, 503, 3600, slowDown}, Answer::Refused, Answer::Refused, L"Slow down", 1},
  };
  for (const auto& [answer, search, read, words, requests] : table) {
    Answers(answer);
    https_.requests.clear();
    const SourceReply searched = Search();
    EXPECT_EQ(https_.requests.size(), requests) << answer.status << answer.body;
    const SourceReply got = Read(L"1");
    EXPECT_EQ(searched.answer, search) << answer.status << answer.body;
    EXPECT_EQ(got.answer, read) << answer.status << answer.body;
    EXPECT_EQ(searched.words, search == Answer::Refused ? words : L"");
    EXPECT_EQ(got.words, words);
    EXPECT_TRUE(hits_.empty());
    EXPECT_FALSE(disc_);
  }
}

TEST_F(MusicBrainz, ABusyServerIsAskedOnceMoreWhenItSays) {
  https_.serve = [this](const HttpsRequest&) {
    return https_.requests.size() == 1 ? HttpsAnswer{End::Complete, 503, 4, "busy"} : Ok(kFound);
  };
  const auto start = test_.events.ticks;
  EXPECT_EQ(Search().answer, Answer::Given);
  EXPECT_GE(test_.events.ticks - start, 4000U);
  EXPECT_LT(test_.events.ticks - start, 5000U);
}

TEST_F(MusicBrainz, CanBeCancelledAtAnyMoment) {
  Answers({End::Complete, 503, 1, "busy"});
  for (cancelAt_ = 1; cancelAt_ < 1000; ++cancelAt_) {
    https_.stall = cancelAt_ % 2 == 0;
    progress_.cancelled = false;
    rounds_ = 0;
    if (Search().answer == Answer::Refused) break;
    ASSERT_EQ(rounds_, cancelAt_);
    EXPECT_EQ(https_.ended, nullptr);
  }
  EXPECT_GT(cancelAt_, 50);  // the whole second that a busy server wants
  EXPECT_LT(cancelAt_, 1000);
}

constexpr auto kGoOn = [] { return true; };

std::string Repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

TEST(MusicBrainzJson, WhatNobodyWouldSayIsRefused) {
  const std::string deep(100'000, '['), megabytes(20'000'000, '7');
  for (const std::string& json : {deep, R"({"media":)" + deep, Repeated(R"({"a":)", 100'000), "[" + megabytes + "]",
                                  std::string(R"({"id":1e999})"), std::string("{\"title\":\"\xff\"}"), std::string("7"),
                                  std::string("\"releases\""), kRelease.substr(0, kRelease.size() - 2)}) {
    EXPECT_FALSE(ParseReply(json, kGoOn)) << json.substr(0, 40);
  }
}

TEST(MusicBrainzJson, ThereIsRoomForSoMuchAndNoMore) {
  const struct {
    std::string start, piece, end;
    std::size_t most;
    std::string closing = {};  // one for each piece
  } table[] = {{"", "[", "", 32, "]"},
               {R"({"title":")", "x", R"("})", 4096},
               {R"({")", "x", R"(":1})", 4096},
               {R"({"artist-credit":[{})", R"(,{"name":"xxxxxxxx"})", "]}", 512},
               {R"({"releases":[{})", ",{}", "]}", 999},
               {R"({"media":[{})", ",{}", "]}", 4999},
               {R"({"media":[{"tracks":[{})", R"(,{"title":"T"})", "]}]}", 99'999}};
  for (const auto& [start, piece, end, most, closing] : table) {
    for (const std::size_t count : {most, most + 1}) {
      const auto json = std::string(start).append(Repeated(piece, count)).append(end).append(Repeated(closing, count));
      EXPECT_EQ(ParseReply(json, kGoOn).has_value(), count == most) << start << piece << " " << count;
    }
  }
}

TEST(MusicBrainzJson, EndlessTextsAreGivenUpAtOnce) {
  for (const char* piece : {"7", "\\\"", "\\u0022"}) {
    int pauses = 0;
    EXPECT_FALSE(ParseReply("{\"title\":\"" + Repeated(piece, 300'000), [&] { return ++pauses > 0; }));
    EXPECT_LT(pauses, 4) << piece;
  }
}

TEST(MusicBrainzJson, TwentyMegabytesAreReadWithPauses) {
  const std::string track = R"({"title":"T","recording":{"disambiguation":")" + std::string(14'000, 'x') + R"("}},)";
  const std::string json = R"({"id":"x","media":[{"tracks":[)" + Repeated(track, 1499) + R"({"title":"last"}]}]})";
  int pauses = 0;
  const auto reply = ParseReply(json, [&] { return ++pauses > 0; });
  ASSERT_TRUE(reply);
  EXPECT_GE(pauses, 300);
  EXPECT_EQ(reply->release.media.at(0).tracks.size(), 1500U);
  EXPECT_FALSE(ParseReply(json, [&] { return --pauses > 300; }));
}

}  // namespace
}  // namespace tagrix
