// Plain functions on Windows paths.
#ifndef TAGRIX_BASE_PATHS_H
#define TAGRIX_BASE_PATHS_H

#include <string>
#include <string_view>

namespace tagrix {

// What stands after the last "\"; the whole path when there is none.
std::wstring_view FileNamePart(std::wstring_view path);
// What stands before the file name, the last "\" included; empty when there is none.
std::wstring_view FolderPart(std::wstring_view path);
// The folder without a trailing "\": "C:\" gives "C:".
std::wstring WithoutBackslash(std::wstring folder);
// The folder with a trailing "\".
std::wstring WithBackslash(std::wstring folder);

// Whether the path starts at a drive or a server ("C:\...", "\\server\..."), so that no current folder plays a part.
bool IsFullPath(std::wstring_view path);
// Whether it is a drive ("C:") or the root of a network share ("\\server\share"): no folder has an entry for it.
bool IsRoot(std::wstring_view path);
// Whether a file can't be called so because Windows takes the name for a device ("CON", "nul.txt", "COM1 .mp3").
bool IsDeviceName(std::wstring_view name);

// Whether the last three characters of the name are, letter case ignored, one of the eight audio endings.
bool IsAudioName(std::wstring_view name);

// Whether the name ends with "." and the format ("MP3"), letter case ignored. The system's own patterns also match
// through short names, so what they yield is tested again.
bool HasFormat(std::wstring_view name, std::wstring_view format);

// The audio endings in the order in which choosers offer them: "MP3", "OGG", "VQF", "APE", "MPC", "MP4", "WMA", "WAV".
inline constexpr std::wstring_view kAudioFormats[] = {L"MP3", L"OGG", L"VQF", L"APE", L"MPC", L"MP4", L"WMA", L"WAV"};

}  // namespace tagrix

#endif
