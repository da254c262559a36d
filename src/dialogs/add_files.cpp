#include "dialogs/add_files.h"

#include <utility>

#include "core/helpers.h"
#include "core/paths.h"
#include "core/publisher.h"
#include "core/settings.h"
#include "core/text.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kLastDir = L"LastDir";

std::wstring StartFolder(Context& context) {
  std::wstring folder = Trim(context.settings.Get(kLastDir, kPageSettingsKey));
  return !folder.empty() && FolderExists(context, folder) ? folder : context.files.MusicFolder();
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
    if (taken || FileExists(context, path)) paths.push_back(std::move(path));
  }
  if (several) {
    context.settings.Put(kLastDir, Trim(WithoutBackslash(answer.folder)), kPageSettingsKey);
  } else if (!paths.empty()) {
    context.settings.Put(kLastDir, folder, kPageSettingsKey);
  }
  return paths;
}

}  // namespace tagrix
