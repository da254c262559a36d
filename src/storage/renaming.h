// Renaming files, and the journal that gives former names back.
#ifndef TAGRIX_STORAGE_RENAMING_H
#define TAGRIX_STORAGE_RENAMING_H

#include <string>
#include <utility>
#include <vector>

#include "base/progress.h"
#include "platform/files.h"

namespace tagrix {

enum class Renamed { Done, Taken, Failed };

// One rename, never over another file. Taken: another file bears the new name already. Asking for that beforehand would
// cost a look-up a file; the call itself refuses a name that is taken.
Renamed TryRename(Files& files, const std::wstring& from, const std::wstring& to);

// What the entries of a list of files were called before a run: entry i of the journal belongs to entry i of the list.
class RenameJournal {
 public:
  void Clear() { former_.clear(); }
  // Of the next entry.
  void Record(std::wstring former) { former_.push_back(std::move(former)); }
  // The entries have changed places: the one at place i stood at `order[i]`.
  void Reorder(const std::vector<int>& order);

  int Count() const { return static_cast<int>(former_.size()); }
  const std::wstring& Former(int i) const { return former_.at(static_cast<std::size_t>(i)); }

 private:
  std::vector<std::wstring> former_;
};

// A list of files whose former names are given back.
class UndoList {
 public:
  virtual ~UndoList() = default;
  virtual int Count() const = 0;
  // The path of entry i as it is; empty: no file to rename.
  virtual std::wstring Path(int i) const = 0;
  // The path that a name in the journal stands for.
  virtual std::wstring PathOf(const std::wstring& former) const { return former; }
  // Entry i bears its former name again.
  virtual void Restored(int i, const std::wstring& former) = 0;
  // Entry i could not get its former name; `result` is Taken or Failed.
  virtual void Kept(int i, const std::wstring& formerPath, Renamed result) = 0;
};

// Undone: nothing is left to be tried again. Entries beyond the journal's end have no former name.
enum class Undone { All, SomeFailed, Cancelled };
Undone UndoRenames(Files& files, const RenameJournal& journal, UndoList& list, Progress& progress);

}  // namespace tagrix

#endif
