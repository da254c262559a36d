#include "album/session_run.h"

#include <utility>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/paths.h"
#include "core/text.h"

namespace tagrix {

SessionRun::SessionRun(AlbumPage& page, Context& context) : page_(page), context_(context) {
  context.cancelled = false;
  SetBusy(context, true);
  page.session_frm.SetEnabled(false);
}

SessionRun::~SessionRun() {
  page_.session_frm.SetEnabled(true);
  context_.progress_box.SetPercent(0);
  SetStatus(context_, L"");
  SetBusy(context_, false);
}

bool SessionRun::Next(int entry, std::wstring status) {
  SetStatus(context_, std::move(status));
  ShowProgress(context_, Percentage(entry, page_.mp3_lst.Count()));
  return !context_.cancelled;
}

std::wstring EntryPath(const AlbumPage& page, const std::wstring& name) {
  return WithBackslash(page.path_txt.Text()) + name;
}

void RenameEntry(AlbumPage& page, Context& context, int entry, const std::wstring& name, const std::wstring& clash) {
  const std::wstring from = EntryPath(page, page.mp3_lst.ItemText(entry)), to = EntryPath(page, name);
  try {
    // Asking for the name beforehand would cost a look-up a file; the call itself refuses a name that is taken.
    context.files.Rename(from, to);
  } catch (const Failure&) {
    if (!EqualIgnoringCase(from, to) && FileExists(context, to)) {
      context.prompts.Message(clash);
    } else {
      ShowRenameFailure(context, to);
    }
    return;
  }
  const auto found = context.files.Find(to);
  page.mp3_lst.SetItemText(entry, found ? found->name : name);
}

}  // namespace tagrix
