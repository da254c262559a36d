// The lines of the lister's catalogue: a pattern with five tokens, expanded for a file.
#ifndef TAGRIX_TOOLS_LISTER_LISTER_PATTERN_H
#define TAGRIX_TOOLS_LISTER_LISTER_PATTERN_H

#include <cstdint>
#include <string>
#include <string_view>

namespace tagrix {

// What the tokens stand for: %1 name without ending, %2 ending with its dot, %3 format, %4 size, %5 folder.
struct ListerValues {
  std::wstring_view name, ending;
  std::wstring format, size;
  std::wstring_view folder;
};

// The values of a file; its name has at least four characters, the last four being the ending. `folder` ends in "\".
// They refer to the two texts.
ListerValues ValuesOf(std::wstring_view name, std::uint64_t bytes, std::wstring_view folder, wchar_t decimalSeparator);

// Replaces the tokens %1 to %5 in this order in the trimmed pattern: a value that holds a later token is expanded, too.
std::wstring ExpandListerPattern(std::wstring_view pattern, const ListerValues& values);

// What the pattern makes of an example.
std::wstring ListerSample(std::wstring_view pattern);

}  // namespace tagrix

#endif
