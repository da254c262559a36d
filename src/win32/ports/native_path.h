// Paths as Windows takes them.
#ifndef TAGRIX_WIN32_PORTS_NATIVE_PATH_H
#define TAGRIX_WIN32_PORTS_NATIVE_PATH_H

#include <string>

namespace tagrix {

// A bare drive is its root, and a long path needs the prefix that lifts the limit.
std::wstring NativePath(const std::wstring& path);

}  // namespace tagrix

#endif
