#include "storage/m3u.h"

#include <algorithm>
#include <vector>

#include "base/file_names.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "base/utf8.h"
#include "storage/small_files.h"

namespace tagrix {

std::wstring RelativePath(std::wstring_view path, std::wstring_view base) {
  if (path.empty() || base.empty()) return {};
  if (base.ends_with(L'\\')) base.remove_suffix(1);
  const std::vector<std::wstring> parts = Split(path, L"\\"), folders = Split(base, L"\\");

  // The file name takes no part in the comparison.
  const std::size_t most = std::min(parts.size() - 1, folders.size());
  std::size_t common = 0;
  while (common < most && EqualIgnoringCase(parts[common], folders[common])) ++common;

  std::wstring result;
  if (common > 0) {
    for (std::size_t i = common; i < folders.size(); ++i) result += L"..\\";
  }
  for (std::size_t i = common; i + 1 < parts.size(); ++i) result += parts[i] + L"\\";
  return result + parts.back();
}

std::wstring PlaylistLine(std::wstring_view path, std::wstring_view folder) {
  return RelativePath(path, folder) + L"\r\n";
}

std::wstring PlaylistFileName(const std::wstring& name, bool utf8) {
  return SafeFileName(name + (utf8 ? L".m3u8" : L".m3u"));
}

void WritePlaylistFile(Files& files, CodePage& codePage, const std::wstring& target, std::wstring_view lines,
                       bool utf8) {
  if (!target.empty()) WriteWholeFile(files, target, utf8 ? ToUtf8(lines) : codePage.ToBytes(lines));
}

}  // namespace tagrix
