// Look-ups of paths, and files that are read and written as a whole.
#ifndef TAGRIX_STORAGE_SMALL_FILES_H
#define TAGRIX_STORAGE_SMALL_FILES_H

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace tagrix {

// One look-up each: whether the path names a file, or a folder.
bool FileExists(Files& files, const std::wstring& path);
bool FolderExists(Files& files, const std::wstring& path);

// The names of a folder's files of one format ("MP3"), in the system's order. Throws Failure.
std::vector<std::wstring> FilesOfFormat(Files& files, const std::wstring& folder, const std::wstring& format);

// The whole content of a small file. Throws Failure.
std::string ReadWholeFile(Files& files, const std::wstring& path);
// Creates or replaces a file beside its target and puts it in place in one call, so that an error leaves what was
// there. Throws Failure.
void WriteWholeFile(Files& files, const std::wstring& path, std::string_view bytes);

}  // namespace tagrix

#endif
