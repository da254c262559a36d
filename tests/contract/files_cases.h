// The file ports that share one contract on this system, each with an empty folder to work in.
#ifndef TAGRIX_TESTS_CONTRACT_FILES_CASES_H
#define TAGRIX_TESTS_CONTRACT_FILES_CASES_H

#include <gtest/gtest.h>

#include <string>

#include "contract/scratch_folder.h"

#ifdef _WIN32
#include "win32/files.h"
#else
#include "fakes/fake_files.h"
#include "fakes/linux_files.h"
#endif

namespace tagrix {

// What differs. kCaseClash: a new name clashes with one that differs in letter case only. kLocks: an open file can't be
// moved. Lenient: a Wine that lets read-only files be written and doesn't change the letter case of names.
#ifdef _WIN32

struct WinFilesCase {
  static constexpr bool kCaseClash = true, kLocks = true;
  static bool Lenient();
  void SetReadOnly(const std::wstring& path);
  // False when this system makes no links.
  bool AddLink(const std::wstring& path);

  ScratchFolder scratch;
  WinFiles files;
  std::wstring folder = scratch.path.wstring();
};
using FilesCases = testing::Types<WinFilesCase>;

#else

struct FakeFilesCase {
  static constexpr bool kCaseClash = true, kLocks = true;
  static bool Lenient() { return false; }
  FakeFilesCase() { files.AddFolder(folder); }
  void SetReadOnly(const std::wstring& path) { files.SetReadOnly(path); }
  bool AddLink(const std::wstring& path) { return files.AddLink(path), true; }

  std::wstring folder = L"C:\\Work\\Folder";
  FakeFiles files;
};

struct LinuxFilesCase {
  static constexpr bool kCaseClash = false, kLocks = false;
  static bool Lenient() { return false; }
  LinuxFilesCase() { files.CreateFolder(folder); }
  void SetReadOnly(const std::wstring& path) {
    std::filesystem::permissions(files.LinuxPath(path), std::filesystem::perms(0444));
  }
  bool AddLink(const std::wstring& path) {
    std::filesystem::create_directory_symlink(scratch.path, files.LinuxPath(path));
    return true;
  }

  std::wstring folder = L"C:\\Folder";
  ScratchFolder scratch;
  LinuxFiles files{scratch.path.string()};
};
using FilesCases = testing::Types<FakeFilesCase, LinuxFilesCase>;

#endif

}  // namespace tagrix

#endif
