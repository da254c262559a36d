// Plain functions on Windows paths.
#ifndef TAGRIX_CORE_PATHS_H
#define TAGRIX_CORE_PATHS_H

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

// Whether the last three characters of the name are, letter case ignored, one of the eight audio endings.
bool IsAudioName(std::wstring_view name);

// Whether the name ends with "." and the format ("MP3"), letter case ignored. The system's own patterns also match
// through short names, so what they yield is tested again.
bool HasFormat(std::wstring_view name, std::wstring_view format);

// The audio endings in the order in which choosers offer them: "MP3", "OGG", "VQF", "APE", "MPC", "MP4", "WMA", "WAV".
inline constexpr std::wstring_view kAudioFormats[] = {L"MP3", L"OGG", L"VQF", L"APE", L"MPC", L"MP4", L"WMA", L"WAV"};

}  // namespace tagrix

#endif
