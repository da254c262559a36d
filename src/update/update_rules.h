// What the updater needs of plain functions: the description file's values, safe file names, sizes as text.
#ifndef TAGRIX_UPDATE_UPDATE_RULES_H
#define TAGRIX_UPDATE_UPDATE_RULES_H

#include <cstdint>
#include <string>
#include <string_view>

namespace tagrix {

// The value of a key in a section of a settings file ("[section]" and "key=value" lines, ";" begins a comment line).
// Section and key are found without regard to letter case, the first one counts; blanks around the value and one pair
// of quotes are dropped. Empty when there is none.
std::wstring ProfileValue(std::wstring_view text, std::wstring_view section, std::wstring_view key);

// Whether a name from the net can be used as a file name in one folder and cannot lead out of it.
bool IsBareFileName(std::wstring_view name);

// "512 bytes", "1.50 Kb", "2.00 Mb", "1.25 Gb": steps of 1024.
std::wstring DisplaySize(std::uint64_t bytes);

// "1.00 Kb of 2.00 Kb [50%]"; only what has arrived when the total is not known (0).
std::wstring DownloadProgress(std::uint64_t done, std::uint64_t total);
// 0 to 100; 0 when the total is not known.
int DownloadPercent(std::uint64_t done, std::uint64_t total);

}  // namespace tagrix

#endif
