#include "storage/renaming.h"

#include <algorithm>

#include "base/failure.h"
#include "base/letter_case.h"
#include "storage/small_files.h"

namespace tagrix {

Renamed TryRename(Files& files, const std::wstring& from, const std::wstring& to) {
  try {
    files.Rename(from, to);
    return Renamed::Done;
  } catch (const Failure&) {
    return !EqualIgnoringCase(from, to) && FileExists(files, to) ? Renamed::Taken : Renamed::Failed;
  }
}

void RenameJournal::Reorder(const std::vector<int>& order) {
  if (order.size() != former_.size()) return;
  std::vector<std::wstring> moved;
  moved.reserve(order.size());
  for (const int from : order) moved.push_back(std::move(former_.at(static_cast<std::size_t>(from))));
  former_ = std::move(moved);
}

Undone UndoRenames(Files& files, const RenameJournal& journal, UndoList& list, Progress& progress) {
  bool failed = false;
  const int count = std::min(list.Count(), journal.Count());
  for (int i = 0; i < count; ++i) {
    const std::wstring current = list.Path(i), former = list.PathOf(journal.Former(i));
    progress.Status(current);
    progress.Percent(Percentage(i, count));
    progress.LetEventsRun();
    if (progress.Cancelled()) return Undone::Cancelled;
    if (current.empty() || current == former) continue;
    const Renamed result = TryRename(files, current, former);
    if (result == Renamed::Done) {
      list.Restored(i, journal.Former(i));
    } else {
      list.Kept(i, former, result);
      failed = failed || result == Renamed::Failed;
    }
  }
  return failed ? Undone::SomeFailed : Undone::All;
}

}  // namespace tagrix
