#include "album/undo.h"

#include <algorithm>
#include <string>

#include "album/session_run.h"
#include "core/helpers.h"
#include "core/messages.h"

namespace tagrix {
namespace {

void UndoEntry(AlbumPage& page, Context& context, int i) {
  const std::wstring current = page.mp3_lst.ItemText(i), former = page.undo_lst.ItemText(i);
  if (IsFakeTrack(current) || current == former) return;
  RenameEntry(page, context, i, former,
              FillMessage(context.Text(message::kUndoClash), {EntryPath(page, former), EntryPath(page, current)}));
}

}  // namespace

void UndoClicked(AlbumPage& page, Context& context) {
  bool all = true;
  {
    SessionRun run(page, context);
    // Entries that were added since have no former name.
    const int count = std::min(page.mp3_lst.Count(), page.undo_lst.Count());
    for (int i = 0; i < count && all; ++i) {
      all = run.Next(i, DoubleAmpersands(EntryPath(page, page.mp3_lst.ItemText(i))));
      if (all) UndoEntry(page, context, i);
    }
    if (all) page.undo_btn.SetEnabled(false);
  }
  if (!all) ShowCancelMessage(context);
}

}  // namespace tagrix
