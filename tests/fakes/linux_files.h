// A real Linux folder that plays drive "C:", for benches and tests on a real disk.
#ifndef TAGRIX_TESTS_FAKES_LINUX_FILES_H
#define TAGRIX_TESTS_FAKES_LINUX_FILES_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tagrix {

// Every operation is the one system call that Linux has for it, on the path as it is spelled; only when that names
// nothing is each component looked up without regard to letter case. So a new name is taken as it is: Create and Rename
// don't notice a file whose name differs in letter case only. Nor does an open file keep others from renaming or
// deleting it. Names are UTF-8 on the disk.
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
  bool HasVolumeLabel(const std::wstring& drive) override;
  std::wstring MusicFolder() override { return {}; }

  // The Linux path of a path on the drive, as it is spelled; empty for another drive.
  std::string LinuxPath(const std::wstring& path) const;

 private:
  // Gives the components that are missing the spelling of those that differ in letter case only. False when that
  // changes nothing.
  bool Respell(std::string& path) const;
  template <typename Call>
  int OnPath(std::string& path, Call call) const;
  std::unique_ptr<class LinuxFile> Open(const wchar_t* operation, const std::wstring& path, int flags);

  std::string root_;
};

}  // namespace tagrix

#endif
