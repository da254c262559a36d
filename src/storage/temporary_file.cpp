#include "storage/temporary_file.h"

#include <utility>

#include "base/failure.h"

namespace tagrix {
namespace {

// Flushed on the way, so that the end of a large file is not one long wait.
constexpr std::uint64_t kFlushedAtOnce = 8 << 20;

template <typename Step>
auto Naming(const std::wstring& target, const Step& step) {
  try {
    return step();
  } catch (const Failure& failure) {
    throw failure.About(target);
  }
}

}  // namespace

std::wstring FreePathBeside(Files& files, const std::wstring& path) {
  constexpr int kMostTried = 1000;
  std::wstring beside = path + L".new";
  for (int n = 2; files.Find(beside); ++n) {
    if (n > kMostTried) throw Failure(Action::Create, path, Cause::NamesTaken);
    beside = path + L".new" + std::to_wstring(n);
  }
  return beside;
}

TemporaryFile::TemporaryFile(Files& files, std::wstring path, std::wstring target)
    : files_(files),
      path_(std::move(path)),
      target_(std::move(target)),
      file_(Naming(target_, [&] { return files.Create(path_); })) {}

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
  Naming(target_, [&] {
    file_->Write(size_, bytes);
    size_ += bytes.size();
    if (size_ - flushed_ < kFlushedAtOnce) return;
    file_->Flush();
    flushed_ = size_;
  });
}

void TemporaryFile::Finish() {
  Naming(target_, [&] {
    file_->Flush();
    if (file_->Size() != size_) throw Failure(Action::Write, path_, Cause::Incomplete);
  });
  file_.reset();
}

void TemporaryFile::Replace() {
  Naming(target_, [&] { files_.Replace(path_, target_); });
  placed_ = true;
}

void TemporaryFile::PutInPlace() {
  if (files_.Find(target_)) return Replace();
  Naming(target_, [&] { files_.Rename(path_, target_); });
  placed_ = true;
}

}  // namespace tagrix
