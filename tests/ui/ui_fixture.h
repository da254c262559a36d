// What every window test starts with: a copy of the program in a folder of its own, and no settings.
#ifndef TAGRIX_TESTS_UI_UI_FIXTURE_H
#define TAGRIX_TESTS_UI_UI_FIXTURE_H

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "ui/driver.h"

namespace tagrix::ui {

// TAGRIX_PROGRAM names the program, TAGRIX_SCREENSHOTS the folder that gets a picture of every failure and of the steps
// of the album road, TAGRIX_ALBUM, when it is set, a new folder that gets the tagged album.
class UiTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // All but one: without the burning program every start would begin with a question.
  static void ForgetSettings();
  Program& Start(const std::filesystem::path& argument = {}) {
    return program_.emplace(folder_ / "tagrix.exe", argument);
  }
  // A picture named after the test.
  static void Picture(const std::string& suffix);

  std::filesystem::path folder_;  // of the program's copy
  std::optional<Program> program_;
};

// With the sample album to go the road with, and the disc server to ask.
class AlbumTest : public UiTest {
 protected:
  void SetUp() override;

  // Starts on the album, as "Send to" does, and retrieves the first disc that the words find.
  const Program& StartWithDisc(const std::wstring& words);

  std::filesystem::path album_;
};

// A path of the system below Wine, as Windows sees it; empty when the variable is not set.
std::filesystem::path PathFrom(const wchar_t* variable);

// The names in a folder, sorted.
std::vector<std::wstring> NamesIn(const std::filesystem::path& folder);
// What a file holds.
std::string Bytes(const std::filesystem::path& file);

}  // namespace tagrix::ui

#endif
