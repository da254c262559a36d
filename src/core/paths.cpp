#include "core/paths.h"

#include <algorithm>

#include "core/text.h"

namespace tagrix {

std::wstring_view FileNamePart(std::wstring_view path) { return path.substr(FolderPart(path).size()); }

std::wstring_view FolderPart(std::wstring_view path) {
  const size_t slash = path.rfind(L'\\');
  return slash == path.npos ? std::wstring_view() : path.substr(0, slash + 1);
}

std::wstring WithoutBackslash(std::wstring folder) {
  if (folder.ends_with(L'\\')) folder.pop_back();
  return folder;
}

std::wstring WithBackslash(std::wstring folder) {
  if (!folder.ends_with(L'\\')) folder += L'\\';
  return folder;
}

bool IsAudioName(std::wstring_view name) {
  if (name.size() < 3) return false;
  const std::wstring_view ending = name.substr(name.size() - 3);
  return std::any_of(std::begin(kAudioFormats), std::end(kAudioFormats),
                     [&](std::wstring_view format) { return EqualIgnoringCase(ending, format); });
}

bool HasFormat(std::wstring_view name, std::wstring_view format) {
  if (name.size() <= format.size()) return false;
  const std::wstring_view ending = name.substr(name.size() - format.size() - 1);
  return ending[0] == L'.' && EqualIgnoringCase(ending.substr(1), format);
}

}  // namespace tagrix
