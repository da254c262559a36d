// A file that is written beside its target and put in place when it is complete.
#ifndef TAGRIX_STORAGE_TEMPORARY_FILE_H
#define TAGRIX_STORAGE_TEMPORARY_FILE_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace tagrix {

// A path beside the given one that names nothing yet. Throws Failure when the first thousand are taken.
std::wstring FreePathBeside(Files& files, const std::wstring& path);

// Removed again unless it was put in place. Every operation throws Failure.
class TemporaryFile {
 public:
  // Creates the file, or empties it when it exists.
  TemporaryFile(Files& files, std::wstring path);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void Append(std::string_view bytes);
  // Makes sure that all of it is on the disk, and closes it.
  void Finish();

  // Once it is finished: takes the place of an existing file in one system call.
  void Replace(const std::wstring& over);
  // Likewise, where there may be a file or none.
  void PutAt(const std::wstring& path);

 private:
  Files& files_;
  std::wstring path_;
  std::unique_ptr<File> file_;
  std::uint64_t size_ = 0, flushed_ = 0;
  bool placed_ = false;
};

}  // namespace tagrix

#endif
