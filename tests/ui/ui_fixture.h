// What every window test starts with: a copy of the program in a folder of its own, and no settings.
#ifndef TAGRIX_TESTS_UI_UI_FIXTURE_H
#define TAGRIX_TESTS_UI_UI_FIXTURE_H

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "ui/driver.h"

namespace tagrix::ui {

// TAGRIX_PROGRAM names the program, TAGRIX_SCREENSHOTS the folder that gets a picture of every failure and of the steps
// of the album road, TAGRIX_ALBUM, when it is set, a new folder that gets the tagged album.
class UiTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Without the burning program every start begins with a question.
  void InstallBurner(bool install) const;
  Program& Start() { return program_.emplace(folder_ / "tagrix.exe"); }
  // A picture named after the test.
  static void Picture(const std::string& suffix);

  std::filesystem::path folder_;  // of the program's copy
  std::optional<Program> program_;
};

// A path of the system below Wine, as Windows sees it; empty when the variable is not set.
std::filesystem::path PathFrom(const wchar_t* variable);

}  // namespace tagrix::ui

#endif
