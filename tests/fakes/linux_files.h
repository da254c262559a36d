// A real Linux folder that plays drive "C:", for benches on a real disk.
#ifndef TAGRIX_TESTS_FAKES_LINUX_FILES_H
#define TAGRIX_TESTS_FAKES_LINUX_FILES_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tagrix {

// Every operation is the one system call that Linux has for it, and keeps Linux's manners: letter case counts, an open
// file may be renamed or deleted, a read-only file replaced or deleted. Names are ASCII.
class LinuxFiles : public Files {
 public:
  // `root`: an existing folder.
  explicit LinuxFiles(std::string root) : root_(std::move(root)) {}

  std::optional<FileInfo> Find(const std::wstring& path) override;
  std::unique_ptr<File> OpenForReading(const std::wstring& path) override;
  std::unique_ptr<File> OpenForWriting(const std::wstring& path) override;
  std::unique_ptr<File> Create(const std::wstring& path) override;
  void Rename(const std::wstring& from, const std::wstring& to) override;
  void Replace(const std::wstring& from, const std::wstring& over) override;
  void Delete(const std::wstring& path) override;
  void CreateFolder(const std::wstring& path) override;
  void List(const std::wstring& folder, const std::wstring& pattern,
            const std::function<bool(const FileInfo&)>& entry) override;
  std::vector<std::wstring> Drives() override { return {L"C:"}; }
  bool HasVolumeLabel(const std::wstring& drive) override { return drive == L"C:"; }
  std::wstring MusicFolder() override { return {}; }

 private:
  // The Linux path of a path on the drive; empty for another drive.
  std::string LinuxPath(const std::wstring& path) const;
  std::unique_ptr<File> Open(const wchar_t* operation, const std::wstring& path, int flags) const;

  std::string root_;
};

}  // namespace tagrix

#endif
