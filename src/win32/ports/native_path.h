// Paths as Windows takes them.
#ifndef TAGRIX_WIN32_PORTS_NATIVE_PATH_H
#define TAGRIX_WIN32_PORTS_NATIVE_PATH_H

#include <string>

namespace tagrix {

// False for what must not reach the system: it would end the path at a NUL, take a device's name for a file that is
// there and waits, and what follows a colon for a hidden part of a file.
bool CanNameAFile(const std::wstring& path);

// A bare drive is its root, and a long path needs the prefix that lifts the limit.
std::wstring NativePath(const std::wstring& path);

}  // namespace tagrix

#endif
