#include "storage/temporary_file.h"

#include <utility>

#include "base/failure.h"

namespace tagrix {
namespace {

// Flushed on the way, so that the end of a large file is not one long wait.
constexpr std::uint64_t kFlushedAtOnce = 8 << 20;

}  // namespace

std::wstring FreePathBeside(Files& files, const std::wstring& path) {
  constexpr int kMostTried = 1000;
  std::wstring beside = path + L".new";
  for (int n = 2; files.Find(beside); ++n) {
    if (n > kMostTried) throw Failure(Action::Create, beside, Cause::NamesTaken);
    beside = path + L".new" + std::to_wstring(n);
  }
  return beside;
}

TemporaryFile::TemporaryFile(Files& files, std::wstring path)
    : files_(files), path_(std::move(path)), file_(files.Create(path_)) {}

TemporaryFile::~TemporaryFile() {
  file_.reset();
  if (placed_) return;
  try {
    files_.Delete(path_);
  } catch (const Failure&) {
    // It stays, and harms nothing.
  }
}

void TemporaryFile::Append(std::string_view bytes) {
  file_->Write(size_, bytes);
  size_ += bytes.size();
  if (size_ - flushed_ < kFlushedAtOnce) return;
  file_->Flush();
  flushed_ = size_;
}

void TemporaryFile::Finish() {
  file_->Flush();
  if (file_->Size() != size_) throw Failure(Action::Write, path_, Cause::Incomplete);
  file_.reset();
}

void TemporaryFile::Replace(const std::wstring& over) {
  files_.Replace(path_, over);
  placed_ = true;
}

void TemporaryFile::PutAt(const std::wstring& path) {
  if (files_.Find(path)) return Replace(path);
  files_.Rename(path_, path);
  placed_ = true;
}

}  // namespace tagrix
