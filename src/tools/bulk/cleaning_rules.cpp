#include "tools/bulk/cleaning_rules.h"

#include <cstddef>

#include "base/letter_case.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::size_t kLongestLeftAlone = 3;
constexpr std::size_t kEnding = 4;        // the dot and three letters
constexpr std::size_t kUnmergeKeeps = 5;  // the ending and the character before it

std::size_t TitleLength(std::wstring_view name) { return name.size() < kEnding ? 0 : name.size() - kEnding; }

// Georgian's capitals write whole words: a word doesn't begin with one.
bool IsGeorgian(wchar_t c) { return c >= 0x10D0 && c <= 0x10FF; }

wchar_t FirstLetter(wchar_t c) { return IsGeorgian(c) ? c : ToUpper(c); }

std::wstring CapitalizeWord(std::wstring_view word) {
  const std::size_t capital = word.size() > 1 && word[0] == L'(' ? 1 : 0;
  std::wstring result(word.substr(0, capital));
  result += FirstLetter(word[capital]);
  return result + ToLower(word.substr(capital + 1));
}

bool IsSmallLetter(wchar_t c) { return ToUpper(c) != ToLower(c) && c == ToLower(c); }

std::wstring ApplyCase(const std::wstring& name, CaseRule rule) {
  switch (rule) {
    case CaseRule::Upper:
      return UpperCaseName(name);
    case CaseRule::Lower:
      return LowerCaseName(name);
    case CaseRule::Capitals:
      return CapitalizeName(name);
    case CaseRule::None:
      break;
  }
  return name;
}

}  // namespace

std::wstring CleanedName(std::wstring_view name, const CleaningRules& rules) {
  if (name.size() <= kLongestLeftAlone) return std::wstring(name);
  std::wstring result = Trim(name);
  if (rules.multipleSpaces) result = CollapseSpaces(std::move(result));
  result = ApplyCase(result, rules.letterCase);
  if (rules.unmerge) result = UnmergeTitle(std::move(result));
  if (rules.merge) result = Replace(result, L" ", L"");
  if (rules.underscores) result = Replace(result, L"_", L" ");
  if (rules.spaces) result = Replace(result, L" ", L"_");
  return result;
}

std::wstring CollapseSpaces(std::wstring name) {
  const std::size_t first = name.empty() ? 0 : name.size() - 1;
  for (std::size_t k = first; k <= 2; ++k) {
    if (k > 0) name = Replace(name, std::wstring(k, L' '), L" ");
  }
  return name;
}

std::wstring UpperCaseName(std::wstring_view name) {
  const std::size_t length = TitleLength(name);
  return ToUpper(name.substr(0, length)).append(name.substr(length));
}

std::wstring LowerCaseName(std::wstring_view name) {
  const std::size_t length = TitleLength(name);
  return ToLower(name.substr(0, length)).append(name.substr(length));
}

std::wstring CapitalizeName(std::wstring_view name) {
  std::wstring result;
  for (const std::wstring& word : Split(name, L" ")) {
    if (!word.empty()) result += CapitalizeWord(word) + L" ";
  }
  return Trim(result);
}

std::wstring UnmergeTitle(std::wstring name) {
  // `i` counts characters as people do, from 1; the bound moves with every space put in.
  for (std::size_t i = 1; i + kUnmergeKeeps < name.size(); ++i) {
    const wchar_t c = name[i - 1], d = name[i];
    if (IsSmallLetter(c) && d != L' ' && d == ToUpper(d)) name.insert(i++, 1, L' ');
  }
  return name;
}

}  // namespace tagrix
