// What a file may be called: names made of foreign text, and the names that Windows keeps for devices.
#ifndef TAGRIX_BASE_FILE_NAMES_H
#define TAGRIX_BASE_FILE_NAMES_H

#include <string>
#include <string_view>

namespace tagrix {

// Deletes the nine characters that no file name may hold, and control characters.
std::wstring CleanFileName(std::wstring_view text);
// The same, then trims blanks at both ends.
std::wstring CleanAndTrimFileName(std::wstring_view text);

// The name, with an underscore after its base where that is a device's: "Con" becomes "Con_", "aux.m3u" "aux_.m3u".
std::wstring SafeFileName(std::wstring name);

// False for a path that must not reach the system, or that it refuses: it would end the path at a NUL, take a device's
// name for a file that is there and waits, what follows a colon for a hidden part of a file, and a star for a pattern.
bool CanNameAFile(const std::wstring& path);

}  // namespace tagrix

#endif
