// Plain M3U playlists: one path a line, no header, CR LF after every line, in the system's code page; those whose names
// it doesn't hold are in UTF-8 and end in ".m3u8".
#ifndef TAGRIX_STORAGE_M3U_H
#define TAGRIX_STORAGE_M3U_H

#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/files.h"

namespace tagrix {

// A file's full path as seen from a folder (with or without a trailing "\"): "..\" for each level up. The path as it
// stands when the two share nothing, such as the drive; empty when either is empty.
std::wstring RelativePath(std::wstring_view path, std::wstring_view base);

// The line that names a file in a playlist of the given folder, its end included.
std::wstring PlaylistLine(std::wstring_view path, std::wstring_view folder);

// What a playlist is called: its name with the ending for its encoding.
std::wstring PlaylistFileName(const std::wstring& name, bool utf8);

// Writes a playlist's lines beside the target and puts them in its place, so that an error leaves what was there. An
// empty target writes nothing. Throws Failure.
void WritePlaylistFile(Files& files, CodePage& codePage, const std::wstring& target, std::wstring_view lines,
                       bool utf8);

}  // namespace tagrix

#endif
