#include "base/paths.h"

#include <algorithm>

#include "base/letter_case.h"

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

bool IsFullPath(std::wstring_view path) { return path.starts_with(L"\\\\") || path.find(L":\\") == 1; }

bool IsRoot(std::wstring_view path) {
  if (path.size() == 2 && path[1] == L':') return true;
  const std::wstring_view share = path.starts_with(L"\\\\") ? path.substr(2) : std::wstring_view();
  const size_t slash = share.find(L'\\');
  return slash != share.npos && slash > 0 && slash + 1 < share.size() && share.find(L'\\', slash + 1) == share.npos;
}

bool IsDeviceName(std::wstring_view name) {
  constexpr std::wstring_view kAlone[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
  constexpr std::wstring_view kNumbered[] = {L"COM", L"LPT"}, kNumbers = L"0123456789\u00B9\u00B2\u00B3";
  std::wstring_view base = name.substr(0, name.find(L'.'));
  base = base.substr(0, base.find_last_not_of(L' ') + 1);
  const auto is = [](std::wstring_view text) {
    return [text](std::wstring_view device) { return EqualIgnoringCase(text, device); };
  };
  if (std::any_of(std::begin(kAlone), std::end(kAlone), is(base))) return true;
  return base.size() == 4 && kNumbers.find(base[3]) != kNumbers.npos &&
         std::any_of(std::begin(kNumbered), std::end(kNumbered), is(base.substr(0, 3)));
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
