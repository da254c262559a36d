#include "discserver/answers.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <regex>
#include <sstream>

namespace discserver {
namespace {

std::vector<Record> Sample() { return LoadRecords(TAGRIX_RECORDS); }

std::string Found(const std::vector<Record>& records, std::string_view words) {
  std::string ids;
  for (const Record* record : FindByWords(records, words)) ids += record->category + "/" + record->id + " ";
  return ids;
}

TEST(DiscServer, FindsAllWordsOrAnyOfThem) {
  const std::vector<Record> records = Sample();
  EXPECT_EQ(Found(records, "low TIDE - Lanterns"), "rock/36048005 ");
  EXPECT_EQ(Found(records, "tide OR bloom"), "rock/36048005 rock/44055806 ");
  EXPECT_EQ(Found(records, "tide bloom"), "");
  EXPECT_EQ(Found(records, "caf\xC9"), "jazz/2404fc04 ");  // capitals beyond ASCII, too
  EXPECT_EQ(Found(records, "lantern"), "");                // whole words only
  EXPECT_EQ(Found(records, " - "), "");
}

TEST(DiscServer, SetsOtherVersionsInSmallType) {
  const std::string page = SearchPage(Sample(), "http://host", "harbour");
  EXPECT_NE(page.find("<a href=\"http://host/freedb_search_fmt.php?cat=rock&id=47013c08\">The Paper"), page.npos);
  EXPECT_NE(page.find("cat=rock&id=4b013d08\"><font size=-1>The Paper Lanterns / Harbour Lights</"), page.npos);
}

TEST(DiscServer, AnswersReadCommands) {
  const std::vector<Record> records = Sample();
  const std::string hello = "Orvin host Tagrix 1.0.0";
  const std::string reply = CddbReply(records, "cddb read rock 47013c08", hello);
  EXPECT_TRUE(reply.starts_with("210 rock 47013c08 ")) << reply;
  EXPECT_TRUE(reply.ends_with("PLAYORDER=\r\n.\r\n")) << reply;
  EXPECT_EQ(CddbReply(records, "cddb read jazz 47013c08", hello).substr(0, 4), "401 ");
  EXPECT_EQ(CddbReply(records, "cddb read rock 47013c08", "Orvin").substr(0, 4), "409 ");
  EXPECT_EQ(CddbReply(records, "cddb read rock", hello).substr(0, 4), "500 ");
}

// A disc id holds the digits of all start seconds, the playing time and the number of tracks.
TEST(DiscServer, HasRecordsWhoseIdsFitTheirOffsets) {
  const std::vector<Record> records = Sample();
  EXPECT_GE(records.size(), 10u);
  for (const Record& record : records) {
    std::vector<int> seconds;
    const std::regex offset("#\t(\\d+)\r\n");
    for (std::sregex_iterator i(record.text.begin(), record.text.end(), offset), end; i != end; ++i) {
      seconds.push_back(std::stoi((*i)[1]) / 75);
    }
    std::smatch length;
    ASSERT_TRUE(std::regex_search(record.text, length, std::regex("# Disc length: (\\d+) seconds")) &&
                !seconds.empty());
    unsigned digits = 0;
    for (const int second : seconds) {
      for (const char digit : std::to_string(second)) digits += static_cast<unsigned>(digit - '0');
    }
    std::ostringstream id;
    id << std::hex << std::setfill('0') << std::setw(2) << digits % 255 << std::setw(4)
       << std::stoi(length[1]) - seconds.front() << std::setw(2) << seconds.size();
    EXPECT_EQ(id.str(), record.id);
  }
}

}  // namespace
}  // namespace discserver
