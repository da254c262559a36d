#include "freedb/cddb.h"

#include <gtest/gtest.h>

#include "base/publisher.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

const std::string kHeaders = "HTTP/1.1 200 OK\r\nServer: x\r\n\r\n";
const std::string kReply = "210 rock 47013c08 CD database entry follows (until terminating `.')\r\n";

std::string Answer(const std::string& lines) { return kHeaders + kReply + lines + ".\r\n"; }

const std::string kTwoTracks =
    "# xmcd\r\n#\r\n# Track frame offsets:\r\n#\t150\r\n#\t18235\r\n#\r\n# Disc length: 3697 seconds\r\n#\r\n"
    "DISCID=47013c08\r\nDTITLE=Various / Hits\r\nDYEAR=1998\r\nDGENRE=Pop\r\n"
    "TTITLE0=Intro\r\nTTITLE1=Caf\xE9\r\nTTITLE1= du coin\r\nEXTD=\r\nEXTT0=TITLE9=\r\nPLAYORDER=\r\n";

std::vector<std::int32_t> Lengths(const std::string& lines) {
  std::vector<std::int32_t> frames;
  const auto disc = ParseDiscRecord(Answer(lines));
  for (const CddbTrack& track : disc.value().tracks) frames.push_back(track.frames);
  return frames;
}

TEST(Cddb, AsksTheServerOfTheSettings) {
  const struct {
    const wchar_t *server, *path, *start;
  } table[] = {
      {L"", L"", L"http://gnudb.gnudb.org/~cddb/cddb.cgi?cmd="},
      {L" freedb.dbpoweramp.com ", L" /cgi bin/cddb ", L"http://freedb.dbpoweramp.com/cgi+bin/cddb?cmd="},
      {L"dbpoweramp.com", L"  ", L"http://dbpoweramp.com/~cddb/cddb.cgi?cmd="},  // part of a name will do
      {L"evil.example", L"x", L"http://gnudb.gnudb.orgx?cmd="},
  };
  TestContext test;
  for (const auto& [server, path, start] : table) {
    test.context.settings.Put(setting::kFreeDbServer, server);
    test.context.settings.Put(setting::kCgiPath, path);
    EXPECT_EQ(CddbReadUrl(test.context.settings, L"rock", L"47013c08"),
              start + (L"cddb+read+rock+47013c08&hello=Orvin+www.tagrix.example+Tagrix+" +
                       std::to_wstring(publisher::kMajor) + L"." + std::to_wstring(publisher::kMinor) + L"." +
                       std::to_wstring(publisher::kRevision) + L"&proto=5"));
  }
}

TEST(DiscRecord, IsRead) {
  const auto disc = ParseDiscRecord(Answer(kTwoTracks)).value();
  EXPECT_EQ(disc.artist, "Various ");
  EXPECT_EQ(disc.album, "Hits");
  EXPECT_EQ(disc.year, "1998");
  ASSERT_EQ(disc.tracks.size(), 2u);
  EXPECT_EQ(disc.tracks[0].title, "Intro");
  EXPECT_EQ(disc.tracks[1].title, "Caf\xE9");
  EXPECT_EQ(disc.tracks[0].frames, 18085);
  EXPECT_EQ(disc.tracks[1].frames, 259040);
}

TEST(DiscRecord, SplitsTheDiscTitleAtItsFirstSlash) {
  const struct {
    const char *title, *artist, *album;
  } table[] = {{"Hits", "Hits", "Hits"}, {"A / B / C", "A ", "B / C"}, {"A/B", "A", ""}, {"A/", "A", ""}, {"", "", ""}};
  for (const auto& [title, artist, album] : table) {
    const auto disc = ParseDiscRecord(Answer(std::string("DTITLE=") + title + "\r\n")).value();
    EXPECT_EQ(disc.artist, artist);
    EXPECT_EQ(disc.album, album);
    EXPECT_FALSE(disc.year);
    EXPECT_TRUE(disc.tracks.empty());
  }
  // The lines around a blank one are glued together; titles end at the first that is missing.
  const auto disc = ParseDiscRecord(Answer("DTITLE=A\r\n\r\n / B\r\nDYEAR=\r\nTTITLE0=x\r\nTTITLE2=gap\r\n")).value();
  EXPECT_EQ(disc.album, "B");
  EXPECT_EQ(disc.year, "");
  EXPECT_EQ(disc.tracks.size(), 1u);
}

TEST(DiscRecord, LeavesUnknownLengthsAtZeroAndHoldsHugeOnes) {
  const std::string titles = "DTITLE=x\r\nTTITLE0=a\r\nTTITLE1=b\r\nTTITLE2=c\r\n",
                    header = "# Track frame offsets:\r\n";
  const std::string length = "# Disc length: 100 seconds\r\n";
  using Frames = std::vector<std::int32_t>;
  EXPECT_EQ(Lengths(header + "# 150\r\n#\r\n" + titles), (Frames{0, 0, 0}));
  EXPECT_EQ(Lengths(header + "# 150\r\n# 250\r\n# 450\r\n# Disc length:seconds\r\n" + titles), (Frames{100, 200, 0}));
  EXPECT_EQ(Lengths(header + "# 150\r\n# 250\r\n# 450\r\n# Disc length: 100 secs\r\n" + titles),
            (Frames{100, 200, -375}));
  EXPECT_EQ(Lengths(header + "# 150\r\n#\r\n# 450.5\r\n" + length + titles), (Frames{0, 300, 7050}));
  EXPECT_EQ(Lengths(header + "#150\r\n#\t250\r\n#450\r\n" + titles), (Frames{100, 200, 0}));
  // Huge numbers are held within 32 bits.
  EXPECT_EQ(Lengths(header + "# -9e99\r\n# 9e99\r\n# -9\r\n# Disc length: 30000000000 seconds\r\n" + titles),
            (Frames{2147483647, -2147483647 - 1, 2147483647}));
}

TEST(DiscRecord, IsNothingElse) {
  const std::string record = kReply + kTwoTracks, whole = record + ".\r\n";
  const std::string bodies[] = {"",
                                "210\r\n\r\nDTITLE=x\r\n.\r\n",
                                "401 rock 47013c08 No such entry.\r\n" + kTwoTracks,
                                std::string("<html>\r\n").append(whole).append("</html>"),
                                record,
                                kReply + "TTITLE0=no disc title\r\n.\r\n"};
  for (const std::string& body : bodies) EXPECT_FALSE(ParseDiscRecord(kHeaders + body)) << body;
  EXPECT_FALSE(ParseDiscRecord(whole));
  const std::string answer = kHeaders + whole;
  ASSERT_TRUE(ParseDiscRecord(answer));
  const std::size_t dot = answer.size() - 3;  // what is cut behind it is whole
  for (std::size_t cut = 0; cut <= dot; ++cut) EXPECT_FALSE(ParseDiscRecord(answer.substr(0, cut))) << cut;
}

// Would take hours, or all memory, if each title searched or copied the rest of the record.
TEST(DiscRecord, MayBeHugeAndHostile) {
  const size_t many = 100'000;
  std::string lines = "DTITLE=x\r\n# Track frame offsets:\r\n", overlapping = "DTITLE=x\r\n";
  for (size_t i = 0; i < many; ++i) {
    lines += "#" + std::to_string(i) + "\r\nTTITLE" + std::to_string(many - 1 - i) + "=t\r\n";
    overlapping += "TITLE" + std::to_string(i) + "=";
  }
  const std::vector<std::int32_t> frames = Lengths(lines + "\r\n");
  EXPECT_EQ(frames.size(), many);
  EXPECT_EQ(frames[many / 2], 1);
  EXPECT_EQ(Lengths(overlapping + "\r\n").size(), 1u);
}

}  // namespace
}  // namespace tagrix
