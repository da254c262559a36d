// The file ports that share one contract on this system, each with an empty folder to work in.
#ifndef TAGRIX_TESTS_CONTRACT_FILES_CASES_H
#define TAGRIX_TESTS_CONTRACT_FILES_CASES_H

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#ifdef _WIN32
#include "win32/files.h"
#else
#include "fakes/fake_files.h"
#include "fakes/linux_files.h"
#endif

namespace tagrix {

// A new folder of this test's own, removed with all that it holds.
class ScratchFolder {
 public:
  ScratchFolder() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test.test_suite_name()) + "." + test.name();
    for (char& c : name) c = c == '/' ? '.' : c;
    path = std::filesystem::temp_directory_path() / ("tagrix." + name);
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::filesystem::path path;
};

#ifdef _WIN32

struct WinFilesCase {
  static constexpr bool kChangesCase = false, kCaseClash = true, kLocks = true;
  void SetReadOnly(const std::wstring& path);
  bool AddLink(const std::wstring& path);
  void SetLabel(bool labelled);

  ScratchFolder scratch;
  WinFiles files;
  std::wstring folder = scratch.path.wstring();
};
using FilesCases = testing::Types<WinFilesCase>;

#else

// What differs: a rename that only changes letter case works; a new name clashes with one that differs in case;
// an open file can't be moved.
struct FakeFilesCase {
  static constexpr bool kChangesCase = true, kCaseClash = true, kLocks = true;
  FakeFilesCase() { files.AddFolder(folder); }
  void SetReadOnly(const std::wstring& path) { files.SetReadOnly(path); }
  bool AddLink(const std::wstring& path) { return files.AddLink(path), true; }
  void SetLabel(bool labelled) { files.SetLabel(L"C:", labelled); }

  std::wstring folder = L"C:\\Work\\Folder";
  FakeFiles files;
};

struct LinuxFilesCase {
  static constexpr bool kChangesCase = true, kCaseClash = false, kLocks = false;
  LinuxFilesCase() { files.CreateFolder(folder); }
  void SetReadOnly(const std::wstring& path) {
    std::filesystem::permissions(files.LinuxPath(path), std::filesystem::perms(0444));
  }
  bool AddLink(const std::wstring& path) {
    std::filesystem::create_directory_symlink(scratch.path, files.LinuxPath(path));
    return true;
  }
  void SetLabel(bool) {}

  std::wstring folder = L"C:\\Folder";
  ScratchFolder scratch;
  LinuxFiles files{scratch.path.string()};
};
using FilesCases = testing::Types<FakeFilesCase, LinuxFilesCase>;

#endif

}  // namespace tagrix

#endif
