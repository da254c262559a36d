#include "win32/ports/native_path.h"

#include <windows.h>

namespace tagrix {

// Folders end 12 characters short of MAX_PATH. The manifest lifts the limit, too, but not every system heeds it.
std::wstring NativePath(const std::wstring& path) {
  if (path.size() == 2 && path[1] == L':') return path + L'\\';
  if (path.size() < MAX_PATH - 12 || path[1] != L':') return path;
  // The prefix also keeps blanks and dots at the end, which are dropped from shorter paths.
  return L"\\\\?\\" + path.substr(0, path.find_last_not_of(L" .") + 1);
}

}  // namespace tagrix
