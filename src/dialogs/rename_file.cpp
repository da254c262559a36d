#include "dialogs/rename_file.h"

#include <string>

#include "base/file_names.h"
#include "base/paths.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/trackedit.h"

namespace tagrix {

void RenameSelected(Context& context, ListBox& list) {
  if (list.SelectedCount() != 1) return;
  const std::wstring path = list.ItemText(list.SelectedIndex());
  std::wstring name(FileNamePart(path));
  if (!EditLine(context, context.Text(message::kRenameCaption), context.Text(message::kNameAfter), name)) return;
  name = CleanAndTrimFileName(name);
  const std::wstring renamed = std::wstring(FolderPart(path)) + SafeFileName(name);
  if (name.empty() || renamed == path || !RenameFile(context, path, renamed)) return;
  for (int i = 0; i < list.Count(); ++i) {  // a list may hold it twice
    if (list.ItemText(i) == path) list.SetItemText(i, renamed);
  }
}

}  // namespace tagrix
