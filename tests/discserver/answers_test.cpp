// What is answered: searches and their ranking, the gateway's replies, MusicBrainz's JSON.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "discserver/cddb.h"
#include "discserver/fixtures.h"
#include "discserver/lucene.h"
#include "discserver/musicbrainz.h"
#include "discserver/search.h"

namespace discserver {
namespace {

struct Answers : testing::Test {
  Answers() : store(Sample(folder)) {}
  static std::string Sample(const TemporaryFolder& folder) {
    StoreWriter writer(folder / "discs.db");
    const std::string various =
        "# Track frame offsets:\n#\t150\n#\t7650\n#\n# Disc length: 302 seconds\nDTITLE=Various / "
        "Hits\nTTITLE0=A feat. B / Song\nTTITLE1=Tune\n";
    writer.Add({{"misc", "0000ee02", "Various / Hits"}, 0, various});
    const auto add = [&writer](const std::string& id, const std::string& title) {
      writer.Add({{"data", id, title}, 0, "DTITLE=" + title + "\n"});
    };
    add("0000dd01", "The Long Road Band / The Long Love of the Road");
    add("0000dd02", "Love / The Road");
    add("0000dd03", "Zither / Some Other Thing Entirely Long");
    add("47013c08", "Twin / Id");
    writer.Finish();
    ImportInto(folder / "discs.db", TAGRIX_RECORDS);
    return folder / "discs.db";
  }
  std::string Found(const Query& query) {
    std::string ids;
    for (const Hit& hit : Search(store, query, kMostHits)) ids += (ids.empty() ? "" : " ") + hit.disc.id;
    return ids;
  }
  std::string Cddb(const std::string& command, const std::string& protocol, const std::string& artist = "",
                   const std::string& album = "") {
    return AnswerCddb(store, {command, "Orvin host Tagrix 1.0.0", protocol, artist, album, "box:18080"}).text;
  }

  TemporaryFolder folder;
  Store store;
};

TEST_F(Answers, SearchRanksHits) {
  const struct {
    const char *words, *ids;
  } kCases[] = {{"low TIDE - Lanterns", "36048005"},
                {"CAF\u00C9", "2404fc04"},
                {"cafe", "2404fc04"},        // accents don't count
                {"lantern", ""},             // whole words only,
                {"lant* tide", "36048005"},  // but for prefixes
                {"tide bloom", ""},
                {"tide OR bloom", "44055806 36048005"},
                {"love road", "0000dd02 0000dd01"},  // the short title first
                {"the OR long OR zither", "0000dd03 0000dd01 0000dd02 36048005 47013c08 4b013d08 a3071c0c"},
                {" - \u2013 *", ""},
                {"OR", ""},
                {"\"love\" (road NEAR artist:", ""}};
  for (const auto& [words, ids] : kCases) EXPECT_EQ(Found(WordsQuery(words)), ids) << words;
  EXPECT_EQ(Found(ArtistAndAlbumQuery("love", "road")), "0000dd02");
  EXPECT_EQ(Found(ArtistAndAlbumQuery("love", "")), "0000dd02");
  EXPECT_EQ(Found(ArtistAndAlbumQuery("love road", "love road")), "0000dd02 0000dd01");
}

TEST_F(Answers, LuceneQueries) {
  const struct {
    const char *query, *ids;
  } kCases[] = {{"release:road AND artist:love", "0000dd02"},
                {"artist:love && release:(road the)", "0000dd02"},
                {"release:\"long love\"", "0000dd01"},
                {"release:\"love long\"", ""},
                {"love -band", "0000dd02"},
                {"love AND NOT artist:band", "0000dd02"},
                {"+road artist:zither", "0000dd02 0000dd01"},
                {"(artist:zith* OR release:hits~0.8)^2 AND Various", "0000ee02"},
                {"tide bloom", "44055806 36048005"},
                {"caf\\\u00E9 \\- \\(du\\:", "2404fc04"},
                {"zith\\*", ""},
                {"-love", ""},
                {"", ""}};
  for (const auto& [query, ids] : kCases) EXPECT_EQ(Found(ParseLucene(query)), ids) << query;
  for (const char* query :
       {"(love", "love)", "\"love", "love AND", "release:", "country:DE", "date:[1 TO 2]", "AND", "a OR", "^2"}) {
    EXPECT_THROW(ParseLucene(query), QueryError) << query;
  }
  EXPECT_THROW(ParseLucene(std::string(100'000, '(')), QueryError);
  std::string long_query;
  for (int i = 0; i < 1000; ++i) long_query += "a ";
  EXPECT_THROW(ParseLucene(long_query), QueryError);
}

TEST_F(Answers, GatewayReplies) {
  const struct {
    const char *command, *protocol, *begin, *holds;
  } kCases[] = {
      {"cddb read jazz 2404fc04", "6", "210 jazz 2404fc04 ", "\r\nDTITLE=Odile Fontan\u00E8s Trio / Caf\u00E9"},
      {"CDDB READ jazz 2404FC04", "5", "210 jazz 2404fc04 ", "Caf\xE9 du L\xE9zard\r\nDYEAR=1962\r\n"},
      {"cddb read jazz 2404fc04", "", "210 ", "L\xE9zard\r\nTTITLE0="},  // without year and genre
      {"cddb read jazz 47013c08", "6", "401 jazz 47013c08 ", "\r\n"},
      {"cddb read rock", "6", "500 ", "\r\n"},
      {"cddb query 36048005 5 150 16211 30286 48514 63655 1154", "6", "200 rock 36048005 The Paper Lanterns / Low",
       "\r\n"},
      {"cddb query 47013c08 1 150 300", "4", "210 ", "data 47013c08 Twin / Id\r\nrock 47013c08 The"},
      {"cddb query 47013c08 1 150 300", "3", "211 ", "\r\n.\r\n"},
      {"cddb query ffffffff 1 150 300", "6", "202 ", "\r\n"},
      {"ver", "6", "200 ", "xmcd"},
      {"help", "1", "210 ", "MOTD"},
      {"motd", "6", "401 ", "\r\n"},
      {"cddb", "6", "500 ", "Unrecognized"},
      {"cddb write", "6", "500 ", "Unrecognized"},
      {"cddb lscat", "6", "210 ", "\r\nmisc\r\n"},
      {"stat", "6", "210 ", "Database entries: 18\r\n"},
      {"sites", "6", "210 ", "\r\nbox http 18080 /~cddb/cddb.cgi N000.00"},
      {"sites", "1", "210 ", "\r\nbox 18080 N000.00"},
      {"cddb read rock 47013c08", "7", "501 ", "\r\n"},
      {"", "6", "500 ", "\r\n"}};
  for (const auto& [command, protocol, begin, holds] : kCases) {
    const std::string reply = Cddb(command, protocol);
    EXPECT_TRUE(reply.starts_with(begin) && reply.find(holds) != reply.npos && reply.ends_with("\r\n"))
        << command << ": " << reply;
  }
  EXPECT_TRUE(Cddb("search", "6", "nobody", "nothing").starts_with("202 "));
  EXPECT_EQ(AnswerCddb(store, {"stat", "Orvin host", "6", "", "", ""}).text, "409 No handshake.\r\n");
}

TEST_F(Answers, ReleasesAreMadeFromRecords) {
  const auto hits = nlohmann::json::parse(FindReleases(store, "release:hits", 10));
  const std::string id = hits["releases"].at(0)["id"];
  const auto various = nlohmann::json::parse(Release(store, id).value());
  const auto rock = nlohmann::json::parse(Release(store, ReleaseId({"rock", "36048005", ""})).value());
  using Pointer = nlohmann::json::json_pointer;
  const struct {
    const nlohmann::json& reply;
    const char* place;
    nlohmann::json value;
  } kCases[] = {{hits, "/count", 1},
                {hits, "/releases/0/score", 100},
                {hits, "/releases/0/track-count", 2},
                {hits, "/releases/0/date", nullptr},  // none
                {various, "/artist-credit/0/name", "Various"},
                {various, "/media/0/tracks/0/title", "Song"},
                {various, "/media/0/tracks/0/artist-credit/0/joinphrase", " feat. "},
                {various, "/media/0/tracks/0/artist-credit/1/name", "B"},
                {various, "/media/0/tracks/0/length", 100'000},
                {various, "/media/0/tracks/1/position", 2},
                {various, "/media/0/tracks/1/recording/length", 200'000},
                {various, "/media/0/tracks/1/artist-credit/0/name", "Various"},
                {rock, "/title", "Low Tide"},
                {rock, "/date", "2001"},
                {rock, "/genres/0/name", "indie rock"},
                {rock, "/genres/0/count", 2},
                {rock, "/genres/1/name", "rock"}};
  for (const auto& [reply, place, value] : kCases) {
    EXPECT_EQ(reply.value(Pointer(place), nlohmann::json()), value) << place;
  }
  // Ids tell discs with one disc id apart.
  EXPECT_NE(ReleaseId({"data", "47013c08", ""}), ReleaseId({"rock", "47013c08", ""}));
  EXPECT_FALSE(Release(store, "47013c08-0000-0000-0000-000000000000"));
  EXPECT_FALSE(Release(store, ""));
}

}  // namespace
}  // namespace discserver
