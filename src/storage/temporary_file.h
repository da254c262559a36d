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

// Removed again unless it was put in place. Every operation throws Failure, which names the target: the user knows
// nothing of the file beside it.
class TemporaryFile {
 public:
  // Creates the file, or empties it when it exists.
  TemporaryFile(Files& files, std::wstring path, std::wstring target);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void Append(std::string_view bytes);
  // Makes sure that all of it is on the disk, and closes it.
  void Finish();

  // Once it is finished: takes the place of its target, which exists, in one system call.
  void Replace();
  // Likewise, where the target may be missing.
  void PutInPlace();

 private:
  Files& files_;
  std::wstring path_, target_;
  std::unique_ptr<File> file_;
  std::uint64_t size_ = 0, flushed_ = 0;
  bool placed_ = false;
};

}  // namespace tagrix

#endif
