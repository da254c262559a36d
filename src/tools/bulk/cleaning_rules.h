// The rules that clean file names: pure functions on text.
#ifndef TAGRIX_TOOLS_BULK_CLEANING_RULES_H
#define TAGRIX_TOOLS_BULK_CLEANING_RULES_H

#include <string>
#include <string_view>

namespace tagrix {

enum class CaseRule { None, Upper, Lower, Capitals };

// The rules that are ticked.
struct CleaningRules {
  bool multipleSpaces = false;
  CaseRule letterCase = CaseRule::None;
  bool unmerge = false, merge = false;
  bool underscores = false;  // to spaces
  bool spaces = false;       // to underscores
  bool operator==(const CleaningRules&) const = default;
};

// What the rules make of a file name with its ending. Names of 3 characters or fewer stay as they are; of all others
// the blanks at both ends are removed, too.
std::wstring CleanedName(std::wstring_view name, const CleaningRules& rules);

// The single rules, in the order in which `CleanedName` applies them.

// Replaces runs of k spaces by one, for k from the length of the name less 1 up to 2: longer names stay as they are.
std::wstring CollapseSpaces(std::wstring name);
// All but the last four characters, which are taken for the ending.
std::wstring UpperCaseName(std::wstring_view name);
std::wstring LowerCaseName(std::wstring_view name);
// Every word with a capital (after a leading "(", too) and small letters, the ending included; single spaces between.
std::wstring CapitalizeName(std::wstring_view name);
// Sets a space after a small letter that stands before a character equal to its own capital. The last five characters
// are not looked at.
std::wstring UnmergeTitle(std::wstring name);

}  // namespace tagrix

#endif
