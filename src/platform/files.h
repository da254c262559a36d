// Port to the file system.
#ifndef TAGRIX_PLATFORM_FILES_H
#define TAGRIX_PLATFORM_FILES_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

// What one look-up of a path yields.
struct FileInfo {
  std::wstring name;  // last component as the file system spells it
  bool folder = false;
  bool link = false;  // a link or mount point, which may lead back up: folder walks pass over it
  bool readOnly = false;
  std::uint64_t size = 0;  // bytes; 0 for a folder
};

// An open file. Closed by its destructor. Every operation throws Failure.
class File {
 public:
  virtual ~File() = default;
  // Length in bytes, as of now.
  virtual std::uint64_t Size() = 0;
  // Reads up to `count` bytes from `offset`; returns the number read, which is less only at the end of the file.
  virtual std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) = 0;
  // Writes all of `bytes` at `offset`; writing past the end makes the file grow.
  virtual void Write(std::uint64_t offset, std::string_view bytes) = 0;
  // Hands everything written to the disk itself.
  virtual void Flush() = 0;
};

// Paths use "\" and begin with a drive ("C:\..."); letter case is ignored and kept. A bare drive "C:" means its root.
// Every operation throws Failure unless its comment says otherwise.
class Files {
 public:
  virtual ~Files() = default;

  // One look-up. Nothing when the path names nothing (also when its folder or drive is missing). Never throws.
  virtual std::optional<FileInfo> Find(const std::wstring& path) = 0;

  virtual std::unique_ptr<File> OpenForReading(const std::wstring& path) = 0;
  // Opens an existing file for reading and writing in place.
  virtual std::unique_ptr<File> OpenForWriting(const std::wstring& path) = 0;
  // Creates the file, or empties it when it exists.
  virtual std::unique_ptr<File> Create(const std::wstring& path) = 0;

  // Gives a file another name in one system call. An existing target (other than the file itself) makes it fail.
  virtual void Rename(const std::wstring& from, const std::wstring& to) = 0;
  // Puts `from` in the place of the existing file `over` in one system call; on failure both are as they were.
  virtual void Replace(const std::wstring& from, const std::wstring& over) = 0;
  virtual void Delete(const std::wstring& path) = 0;
  virtual void CreateFolder(const std::wstring& path) = 0;

  // Calls `entry` for each entry of the folder but "." and "..", in the system's order, sizes included; stops when it
  // returns false. Throws when the folder can't be read. `pattern` is the system's file pattern ("*", "*.mp3"): what it
  // also matches through short names is passed on, so callers that care check the ending themselves.
  virtual void List(const std::wstring& folder, const std::wstring& pattern,
                    const std::function<bool(const FileInfo&)>& entry) = 0;

  // The drives, as "C:". Never throws.
  virtual std::vector<std::wstring> Drives() = 0;
  // Whether the volume of a drive ("C:") has a non-empty label. Never throws.
  virtual bool HasVolumeLabel(const std::wstring& drive) = 0;
  // The user's Music folder; empty when unknown. Never throws.
  virtual std::wstring MusicFolder() = 0;
  // Likewise, the user's desktop.
  virtual std::wstring DesktopFolder() = 0;
};

}  // namespace tagrix

#endif
