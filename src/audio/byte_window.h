// A file seen through a buffer: small reads where one looks here and there, large ones where one walks on.
#ifndef TAGRIX_AUDIO_BYTE_WINDOW_H
#define TAGRIX_AUDIO_BYTE_WINDOW_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/files.h"

namespace tagrix {

class ByteWindow {
 public:
  // `goOn` is asked now and then; when it says no, the file reads as if it ended there.
  ByteWindow(File& file, const std::function<bool()>& goOn) : file_(file), goOn_(goOn), size_(file.Size()) {}

  std::uint64_t Size() const { return size_; }
  bool Stopped() const { return stopped_; }

  // The `count` bytes at `at`, at most 64 KiB, fewer only at the end of the file. Valid until the next call.
  std::string_view View(std::uint64_t at, std::size_t count) { return Ahead(at, count).substr(0, count); }
  // As many from `at` on as are at hand; like View, at least `count`.
  std::string_view Ahead(std::uint64_t at, std::size_t count) {
    const std::uint64_t end = start_ + held_;
    if (at < start_ || at > end || (at + count > end && end < size_)) Fill(at, count);
    const auto skipped = static_cast<std::size_t>(at - start_);
    return {buffer_.get() + skipped, held_ - skipped};
  }

 private:
  static constexpr std::size_t kSmall = 4096, kLarge = 65536;
  static constexpr std::uint64_t kBetweenPauses = 1 << 20;

  void Fill(std::uint64_t at, std::size_t count) {
    const bool onward = held_ > 0 && at >= start_ && at - start_ <= 2 * held_;  // frames are passed over, too
    const std::size_t block = onward ? kLarge : std::max(count, kSmall);
    start_ = at;
    held_ = at < size_ && !stopped_ ? file_.Read(at, buffer_.get(), block) : 0;
    unpaused_ += held_;
    if (unpaused_ < kBetweenPauses || !goOn_) return;
    unpaused_ = 0;
    if (!goOn_()) stopped_ = true;
  }

  File& file_;
  const std::function<bool()>& goOn_;
  std::uint64_t size_, start_ = 0, unpaused_ = 0;
  std::size_t held_ = 0;  // from `start_` on
  std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(kLarge);
  bool stopped_ = false;
};

}  // namespace tagrix

#endif
