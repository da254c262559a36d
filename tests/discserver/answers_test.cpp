#include "discserver/answers.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>

namespace discserver {
namespace {

struct DiscServer : testing::Test {
  const std::vector<Record> sample = LoadRecords(TAGRIX_RECORDS);
};

TEST_F(DiscServer, FindsAllWordsOrAnyOfThem) {
  const auto found = [this](std::string_view words) {
    std::string ids;
    for (const Record* record : FindByWords(sample, words)) ids += record->category + "/" + record->id + " ";
    return ids;
  };
  EXPECT_EQ(found("low TIDE - Lanterns"), "rock/36048005 ");
  EXPECT_EQ(found("tide OR bloom"), "rock/36048005 rock/44055806 ");
  EXPECT_EQ(found("tide bloom"), "");
  EXPECT_EQ(found("caf\xC9"), "jazz/2404fc04 ");  // capitals beyond ASCII, too
  EXPECT_EQ(found("lantern"), "");                // whole words only
  EXPECT_EQ(found(" - "), "");
}

TEST_F(DiscServer, AnswersReadCommands) {
  const std::string hello = "Orvin host Tagrix 1.0.0";
  const std::string reply = CddbReply(sample, "cddb read rock 47013c08", hello);
  EXPECT_TRUE(reply.starts_with("210 rock 47013c08 ")) << reply;
  EXPECT_TRUE(reply.ends_with("PLAYORDER=\r\n.\r\n")) << reply;
  EXPECT_TRUE(CddbReply(sample, "cddb read jazz 47013c08", hello).starts_with("401 "));
  EXPECT_TRUE(CddbReply(sample, "cddb read rock 47013c08", "Orvin").starts_with("409 "));
  EXPECT_TRUE(CddbReply(sample, "cddb read rock", hello).starts_with("500 "));
}

// A disc id holds the digits of all start seconds, the playing time and the number of tracks.
TEST_F(DiscServer, HasRecordsWhoseIdsFitTheirOffsets) {
  EXPECT_GE(sample.size(), 10u);
  for (const Record& record : sample) {
    int first = -1, digits = 0, tracks = 0;
    const std::regex offset("#\t(\\d+)\r\n");
    for (std::sregex_iterator i(record.text.begin(), record.text.end(), offset), end; i != end; ++i, ++tracks) {
      const int second = std::stoi((*i)[1]) / 75;
      if (first < 0) first = second;
      for (const char digit : std::to_string(second)) digits += digit - '0';
    }
    std::smatch length;
    ASSERT_TRUE(std::regex_search(record.text, length, std::regex("# Disc length: (\\d+) seconds")));
    char id[9];
    std::snprintf(id, sizeof id, "%02x%04x%02x", digits % 255 & 0xFF, (std::stoi(length[1]) - first) & 0xFFFF,
                  tracks & 0xFF);
    EXPECT_EQ(id, record.id);
  }
}

}  // namespace
}  // namespace discserver
