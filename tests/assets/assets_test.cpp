// The data files that lie beside the program agree with the code and with each other.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "core/messages.h"

namespace tagrix {
namespace {

std::string ReadSource(const std::string& file) {
  std::ifstream in(TAGRIX_SOURCE_DIR "/" + file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The lines of a file whose lines all end in CR LF.
std::vector<std::string> Lines(const std::string& file) {
  std::vector<std::string> lines;
  std::istringstream in(ReadSource(file));
  for (std::string line; std::getline(in, line);) {
    EXPECT_TRUE(line.ends_with('\r')) << file << ": " << line;
    lines.push_back(line.substr(0, line.size() - 1));
  }
  return lines;
}

std::multiset<std::string> Placeholders(const std::string& text) {
  static const std::regex placeholder("%%\\w+%%");
  return {std::sregex_token_iterator(text.begin(), text.end(), placeholder), std::sregex_token_iterator()};
}

class LanguageFile : public testing::TestWithParam<const char*> {
 protected:
  std::string Text(int message) const { return lines_.at(static_cast<std::size_t>(message)).substr(3); }
  // The letter after the one "&" that doesn't stand before another "&"; 0 without one.
  char AccessKey(int message) const {
    const std::string text = Text(message);
    const auto mark = text.find('&');
    return mark == std::string::npos ? '\0' : static_cast<char>(std::toupper(text.at(mark + 1)));
  }
  const std::vector<std::string> lines_ = Lines(std::string("assets/") + GetParam());
};

TEST_P(LanguageFile, NumbersEveryMessage) {
  ASSERT_EQ(lines_.size(), static_cast<std::size_t>(message::kCount));
  for (int i = 0; i < message::kCount; ++i) {
    const std::string& line = lines_.at(static_cast<std::size_t>(i));
    ASSERT_GE(line.size(), 4U) << i;
    EXPECT_EQ(std::stoi(line.substr(0, 3)), i);
    EXPECT_NE(line.at(3), ' ') << i;
    EXPECT_NE(line.back(), ' ') << i;
  }
}

// The header is the list of the messages in use; a comment on a line of one message names its placeholders.
TEST_P(LanguageFile, HasATextForEveryNameOfTheHeader) {
  const std::regex name("\\bk\\w+ = (\\d+)");
  std::set<int> named;
  std::istringstream header(ReadSource("src/core/messages.h"));
  for (std::string line; std::getline(header, line);) {
    for (std::sregex_iterator found(line.begin(), line.end(), name), end; found != end; ++found) {
      const int number = std::stoi((*found)[1]);
      if (number >= message::kCount) continue;
      EXPECT_TRUE(named.insert(number).second) << number << " has two names";
      EXPECT_NE(Text(number), "-") << number;
      EXPECT_EQ(Placeholders(Text(number)), Placeholders(line)) << number;
    }
  }
  EXPECT_GT(named.size(), 130U);
  for (int i = 0; i < message::kCount; ++i) {
    EXPECT_TRUE(named.contains(i) || Text(i) == "-") << i << " has a text and no name";
  }
}

TEST_P(LanguageFile, GivesNoTwoCaptionsOfAPageTheSameAccessKey) {
  namespace m = message;
  const std::map<std::string, std::vector<int>> pages = {
      {"album",
       {m::kSearch, m::kRetrieve, m::kApply, m::kMore, m::kBrowse, m::kClear, m::kAddFake, m::kAutoSort, m::kStatistics,
        m::kDelete, m::kRename, m::kCreatePlaylist, m::kId3v2, m::kId3v1, m::kUndo, m::kCancel}},
      {"lister", {m::kBrowse, m::kNameColon, m::kPatternColon, m::kRecurseSubfolders, m::kStart, m::kCancel}},
      {"bulk",
       {m::kAddFiles, m::kAddFolder, m::kDelete, m::kReset, m::kSpaces, m::kMultiSpaces, m::kUnderscores, m::kUnmerge,
        m::kCase, m::kLowerCase, m::kUpperCase, m::kCapitals, m::kStart, m::kUndo, m::kCancel}},
      {"playlist",
       {m::kBrowse, m::kFileName, m::kAddFiles, m::kAddFolder, m::kDelete, m::kReset, m::kStart, m::kCancel}},
      {"burn", {m::kAddFiles, m::kAddFolder, m::kDelete, m::kReset, m::kBurn, m::kCancel}},
      {"setup",
       {m::kChooseLanguage, m::kOk, m::kBypass, m::kAutoUpdate, m::kPatternColon, m::kPlaylistInAlbum,
        m::kPlaylistInParent, m::kPlaylistInFolder, m::kBrowse, m::kChooseServer, m::kUseProxy, m::kServerColon,
        m::kPortColon, m::kCgiPath, m::kHttpPort, m::kCancel}},
      {"about", {m::kCheckForUpdates, m::kSupport, m::kWebSite, m::kCancel}},
      {"automatic sort", {m::kFastSort, m::kQuadraticSort, m::kAutoSort, m::kConfirmSort, m::kCancel}},
      {"folder chooser", {m::kRecurse, m::kOk, m::kCancel}},
  };
  for (const auto& [page, captions] : pages) {
    std::set<char> keys;
    for (const int caption : captions) {
      EXPECT_NE(AccessKey(caption), '\0') << page << ": " << Text(caption);
      EXPECT_TRUE(keys.insert(AccessKey(caption)).second) << page << ": " << Text(caption);
    }
  }
  for (int i = 0; i < m::kCount; ++i) EXPECT_EQ(Text(i).find('&'), Text(i).rfind('&')) << Text(i);
}

INSTANTIATE_TEST_SUITE_P(Assets, LanguageFile, testing::Values("english.lf", "french.lf"),
                         [](const auto& language) { return std::string(language.param).substr(0, 6); });

// Line i names genre 147 - i.
TEST(GenreList, IsCompleteAndDescends) {
  const std::vector<std::string> names = Lines("assets/styles.dat");
  ASSERT_EQ(names.size(), 148U);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 148U);
  EXPECT_EQ(names.at(147 - 0), "Blues");
  EXPECT_EQ(names.at(147 - 17), "Rock");
  EXPECT_EQ(names.at(147 - 147), "Synthpop");
}

}  // namespace
}  // namespace tagrix
