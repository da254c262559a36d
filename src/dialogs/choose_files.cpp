#include "dialogs/choose_files.h"

#include <utility>

#include "base/paths.h"
#include "base/publisher.h"
#include "base/text.h"
#include "core/settings.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

std::wstring StartFolder(Context& context) {
  const std::wstring folder = context.settings.Get(setting::kPageLastDir);
  return !folder.empty() && FolderExists(context.files, folder) ? folder : context.files.MusicFolder();
}

}  // namespace

FileFilter MediaFilter(const std::wstring& label) { return {label + L" (" + kMediaPatterns + L")", kMediaPatterns}; }

std::vector<std::wstring> ChooseFiles(Context& context, std::vector<FileFilter> filters) {
  const OpenFilesAnswer answer =
      context.prompts.OpenFiles({publisher::kProduct, StartFolder(context), std::move(filters)});
  const bool several = answer.names.size() > 1;
  const std::wstring folder = WithBackslash(answer.folder);

  std::vector<std::wstring> paths;
  for (const std::wstring& name : answer.names) {
    if (Trim(name).empty()) continue;
    std::wstring path = folder + name;
    // Of several, a name with a colon is taken as it stands: a stream within a file, which no look-up finds.
    const bool taken = several && name.find(L':') != name.npos;
    if (taken || FileExists(context.files, path)) paths.push_back(std::move(path));
  }
  if (several) {
    context.settings.Put(setting::kPageLastDir, Trim(WithoutBackslash(answer.folder)));
  } else if (!paths.empty()) {
    context.settings.Put(setting::kPageLastDir, folder);
  }
  return paths;
}

}  // namespace tagrix
