// A new folder of a test's own, removed with all that it holds.
#ifndef TAGRIX_TESTS_CONTRACT_SCRATCH_FOLDER_H
#define TAGRIX_TESTS_CONTRACT_SCRATCH_FOLDER_H

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

namespace tagrix {

// Removes a folder that may be missing, may hold long paths and read-only files.
void RemoveTree(const std::filesystem::path& folder);

class ScratchFolder {
 public:
  ScratchFolder() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("tagrix.") + test.test_suite_name() + "." + test.name();
    std::replace(name.begin(), name.end(), '/', '.');
    path = std::filesystem::temp_directory_path() / name;
    RemoveTree(path);
    std::filesystem::create_directories(path);
  }
  ~ScratchFolder() { RemoveTree(path); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::filesystem::path path;
};

}  // namespace tagrix

#endif
