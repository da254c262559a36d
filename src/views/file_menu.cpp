#include "views/file_menu.h"

#include "base/paths.h"
#include "core/dispatch.h"
#include "core/messages.h"

namespace tagrix {

std::vector<MenuEntry> FileMenu(Context& context, const std::vector<std::wstring>& paths) {
  if (paths.empty()) return {};
  const bool one = paths.size() == 1;
  const std::wstring& first = paths.front();
  std::wstring names;
  for (const std::wstring& path : paths) {
    if (!names.empty()) names += L"\r\n";
    names += FileNamePart(path);
  }
  return {
      {context.Text(message::kOpenFile), Notice(context, [&context, first] { context.shell.OpenFile(first); }), one},
      {context.Text(message::kShowInFolder), Notice(context, [&context, first] { context.shell.ShowInFolder(first); }),
       one},
      {context.Text(message::kCopyName), Notice(context, [&context, names] { context.shell.CopyText(names); })}};
}

std::vector<MenuEntry> FileMenu(Context& context, ListBox& list) {
  std::vector<std::wstring> paths;
  for (int i = 0; i < list.Count(); ++i) {
    if (list.Selected(i)) paths.push_back(list.ItemText(i));
  }
  std::vector<MenuEntry> menu = FileMenu(context, paths);
  if (!menu.empty()) {
    menu.push_back(
        {context.Text(message::kRenameFile), [&list] { list.PressKey(ListKey::Rename); }, paths.size() == 1});
  }
  return menu;
}

}  // namespace tagrix
