// Files of the source tree, for the tests that look at them.
#ifndef TAGRIX_TESTS_ASSETS_SOURCE_FILES_H
#define TAGRIX_TESTS_ASSETS_SOURCE_FILES_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace tagrix {

inline std::string ReadSource(const std::filesystem::path& file) {
  std::ifstream in(TAGRIX_SOURCE_DIR / file, std::ios::binary);
  EXPECT_TRUE(in) << file;
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The lines of a file whose lines all end in CR LF.
inline std::vector<std::string> Lines(const std::string& file) {
  std::vector<std::string> lines;
  std::istringstream in(ReadSource(file));
  for (std::string line; std::getline(in, line); lines.push_back(line.substr(0, line.size() - 1))) {
    EXPECT_TRUE(line.ends_with('\r')) << file << ": " << line;
  }
  return lines;
}

inline std::vector<std::smatch> Matches(const std::string& text, const char* pattern) {
  const std::regex regex(pattern);
  return {std::sregex_iterator(text.begin(), text.end(), regex), std::sregex_iterator()};
}

}  // namespace tagrix

#endif
