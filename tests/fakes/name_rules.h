// What Windows makes of file names and patterns, for the twins that have no Windows below them.
#ifndef TAGRIX_TESTS_FAKES_NAME_RULES_H
#define TAGRIX_TESTS_FAKES_NAME_RULES_H

#include <string_view>

namespace tagrix {

// Whether a name matches a file pattern: a "*" stands for any run of characters, letter case is ignored.
bool MatchesPattern(std::wstring_view pattern, std::wstring_view name);

// Whether a file could bear the name: none of the forbidden characters, no blank and no dot at the end.
bool ValidName(std::wstring_view name);

}  // namespace tagrix

#endif
