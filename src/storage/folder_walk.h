// The way through a tree of folders, breadth first.
#ifndef TAGRIX_STORAGE_FOLDER_WALK_H
#define TAGRIX_STORAGE_FOLDER_WALK_H

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace tagrix {

// How much of it is done is an estimate that only grows: each folder shares its part evenly with the folders in it.
class FolderWalk {
 public:
  explicit FolderWalk(std::wstring folder) : waiting_{{std::move(folder), 100}} {}

  // The folder to be walked next; nothing when all have been.
  std::optional<std::wstring> Next() {
    const double share = share_ / static_cast<double>(1 + found_);
    for (std::size_t i = waiting_.size() - found_; i < waiting_.size(); ++i) waiting_[i].second = share;
    done_ += share;
    found_ = 0;
    if (waiting_.empty()) return std::nullopt;
    std::wstring folder = std::move(waiting_.front().first);
    share_ = waiting_.front().second;
    waiting_.pop_front();
    return folder;
  }
  // A folder in the one that is being walked.
  void Add(std::wstring folder) {
    waiting_.emplace_back(std::move(folder), 0);
    ++found_;
  }
  int Percent() const { return static_cast<int>(done_); }

 private:
  std::deque<std::pair<std::wstring, double>> waiting_;  // with their shares, per cent
  std::size_t found_ = 0;                                // the last of them, in the folder that is being walked
  double share_ = 0, done_ = 0;
};

}  // namespace tagrix

#endif
