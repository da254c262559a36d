#include "win32/ports/native_path.h"

#include <windows.h>

#include "base/paths.h"

namespace tagrix {
namespace {

bool IsDrive(const std::wstring& path) { return path.size() == 2 && path[1] == L':'; }

}  // namespace

bool CanNameAFile(const std::wstring& path) {
  const std::wstring whole = WithoutBackslash(path);
  const std::wstring_view name = FileNamePart(whole);
  return whole.find(L'\0') == whole.npos && !IsDeviceName(name) && (IsDrive(whole) || name.find(L':') == name.npos);
}

// Folders end 12 characters short of MAX_PATH. The manifest lifts the limit, too, but not every system heeds it.
std::wstring NativePath(const std::wstring& path) {
  if (IsDrive(path)) return path + L'\\';
  if (path.size() < MAX_PATH - 12 || path[1] != L':') return path;
  // The prefix also keeps blanks and dots at the end, which are dropped from shorter paths.
  return L"\\\\?\\" + path.substr(0, path.find_last_not_of(L" .") + 1);
}

}  // namespace tagrix
