// The data files that lie beside the program agree with the code and with each other.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "base/failure.h"
#include "core/messages.h"

namespace tagrix {
namespace {

std::string ReadSource(const std::filesystem::path& file) {
  std::ifstream in(TAGRIX_SOURCE_DIR / file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The lines of a file whose lines all end in CR LF.
std::vector<std::string> Lines(const std::string& file) {
  std::vector<std::string> lines;
  std::istringstream in(ReadSource(file));
  for (std::string line; std::getline(in, line); lines.push_back(line.substr(0, line.size() - 1))) {
    EXPECT_TRUE(line.ends_with('\r')) << file << ": " << line;
  }
  return lines;
}

std::vector<std::smatch> Matches(const std::string& text, const char* pattern) {
  const std::regex regex(pattern);
  return {std::sregex_iterator(text.begin(), text.end(), regex), std::sregex_iterator()};
}

std::multiset<std::string> Placeholders(const std::string& text) {
  std::multiset<std::string> found;
  for (const std::smatch& match : Matches(text, "%%\\w+%%")) found.insert(match.str());
  return found;
}

constexpr int kLastCause = message::kFirstCause - 1 + static_cast<int>(Cause::NamesTaken);
static_assert(message::kFirstAction + static_cast<int>(Action::Tag) + 1 == message::kFirstCause);

// The header is the list of the messages in use; a comment on a line of one message names its placeholders.
struct Header {
  Header() {
    std::istringstream header(ReadSource("src/core/messages.h"));
    for (std::string line; std::getline(header, line);) {
      for (const std::smatch& match : Matches(line, "\\bk(\\w+) = (\\d+)")) {
        if (match[1] == "Count" || match[1] == "FirstMore") continue;
        const int number = std::stoi(match[2]);
        numbers[match[1]] = number;
        EXPECT_TRUE(placeholders.emplace(number, Placeholders(line)).second) << number << " has two names";
      }
    }
    for (int i = message::kFirstAction; i <= kLastCause; ++i) placeholders.try_emplace(i);
  }
  std::map<std::string, int> numbers;
  std::map<int, std::multiset<std::string>> placeholders;
};

// A language file and its companion.
struct LanguageFiles : testing::TestWithParam<const char*> {
  LanguageFiles() {
    for (const auto& [ending, first] : {std::pair(".lf", 0), {".lfx", message::kFirstMore}}) {
      int number = first;
      for (const std::string& line : Lines(std::string("assets/") + GetParam() + ending)) lines[number++] = line;
    }
  }
  std::string Text(int message) const { return lines.at(message).substr(3); }
  std::map<int, std::string> lines;
  Header header;
};

TEST_P(LanguageFiles, HoldEveryMessageOfTheHeader) {
  const int last = header.placeholders.rbegin()->first;
  EXPECT_EQ(lines.size(), static_cast<std::size_t>(message::kCount + last + 1 - message::kFirstMore));
  EXPECT_EQ(lines.rbegin()->first, last);
  for (const auto& [number, line] : lines) {
    ASSERT_GE(line.size(), 4U) << number;
    EXPECT_EQ(std::stoi(line.substr(0, 3)), number);
    EXPECT_TRUE(line[3] != ' ' && line.back() != ' ') << number;
    EXPECT_EQ(line.find('\xC3'), line.npos) << "UTF-8 instead of windows-1252: " << number;
    EXPECT_EQ(Text(number) != "-", header.placeholders.contains(number)) << number;
    EXPECT_EQ(Placeholders(line), header.placeholders[number]) << number;
  }
}

// Each page and each dialog lists its captions in one file; the Cancel button stands beside every page.
TEST_P(LanguageFiles, GiveNoTwoCaptionsOfAPageTheSameAccessKey) {
  const auto key = [&](int message) {
    const std::string text = Text(message);
    const auto found = Matches(text, "&(.)");
    EXPECT_LE(found.size(), 1U) << text;
    return found.empty() ? 0 : std::toupper(found[0].str()[1]);
  };
  std::size_t pages = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(TAGRIX_SOURCE_DIR "/src")) {
    if (file.path().extension() != ".cpp") continue;
    std::map<int, std::string> keys{{key(message::kCancel), "Cancel"}};
    const std::string source = ReadSource(file.path());
    for (const std::smatch& caption : Matches(source, "\\{\\w+\\.(\\w+), message::k(\\w+)\\}")) {
      const std::string control = caption[1], name = caption[2];
      const int own = key(header.numbers.at(name));
      EXPECT_TRUE(own == 0 || keys.try_emplace(own, name).first->second == name) << file << control;
      const bool pressed = !Matches(control, "_(btn|chk|rdo|opt)$").empty() && control != "helpgenre_btn";
      EXPECT_TRUE(own != 0 || !pressed) << file << control;
    }
    if (keys.size() > 1) ++pages;
  }
  EXPECT_GT(pages, 9U);
}

INSTANTIATE_TEST_SUITE_P(Assets, LanguageFiles, testing::Values("english", "french"),
                         [](const auto& language) { return std::string(language.param); });

TEST(BuiltInEnglish, IsAscii) {
  for (const char c : ReadSource("assets/english.lfx")) ASSERT_GT(c, '\0');
}

// Line i names genre 147 - i.
TEST(GenreList, IsCompleteAndDescends) {
  const std::vector<std::string> names = Lines("assets/styles.dat");
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 148U);
  EXPECT_EQ(names.front(), "Synthpop");
  EXPECT_EQ(names.back(), "Blues");
}

}  // namespace
}  // namespace tagrix
