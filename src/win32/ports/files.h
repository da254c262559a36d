// The file system of Windows.
#ifndef TAGRIX_WIN32_PORTS_FILES_H
#define TAGRIX_WIN32_PORTS_FILES_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tagrix {

// Paths may be longer than MAX_PATH. An open file can be read by others, and written while it is only being read here.
class WinFiles : public Files {
 public:
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
  std::vector<std::wstring> Drives() override;
  bool HasVolumeLabel(const std::wstring& drive) override;
  std::wstring MusicFolder() override;
  std::wstring DesktopFolder() override;
};

}  // namespace tagrix

#endif
