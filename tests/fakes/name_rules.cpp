#include "fakes/name_rules.h"

#include "core/text.h"

namespace tagrix {

bool MatchesPattern(std::wstring_view pattern, std::wstring_view name) {
  using std::operator""sv;  // no length to be counted: this runs for every entry of a folder
  if (pattern == L"*"sv || pattern == L"*.*"sv) return true;
  if (pattern.empty()) return name.empty();
  if (pattern[0] == L'*') {
    return MatchesPattern(pattern.substr(1), name) || (!name.empty() && MatchesPattern(pattern, name.substr(1)));
  }
  return !name.empty() && ToLower(pattern[0]) == ToLower(name[0]) && MatchesPattern(pattern.substr(1), name.substr(1));
}

bool ValidName(std::wstring_view name) {
  return !name.empty() && name.find_first_of(L"/:?*\"<>|") == name.npos && !name.ends_with(L' ') &&
         !name.ends_with(L'.');
}

}  // namespace tagrix
