#include "tools/lister/lister_pattern.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/letter_case.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr double kMebibyte = 1048576;

using Tokens = std::array<std::wstring_view, 5>;  // the values of %1 to %5

Tokens TokensOf(const ListerValues& values) {
  return {values.name, values.ending, values.format, values.size, values.folder};
}

// Where each token gives its value and nothing else: no value holds a "%", and no other "%" stands before a token.
// Returns false otherwise.
bool ExpandPlainly(std::wstring_view pattern, const Tokens& values, std::wstring& line) {
  for (const std::wstring_view value : values) {
    if (value.find(L'%') != value.npos) return false;
  }
  std::size_t done = 0;
  for (std::size_t at; (at = pattern.find(L'%', done)) < pattern.size(); done = at + 2) {
    line.append(pattern.substr(done, at - done));
    const std::wstring_view token = pattern.substr(at, 2);
    if (token == L"%%") return false;
    const bool known = token.size() == 2 && token[1] >= L'1' && token[1] <= L'5';
    line.append(known ? values[static_cast<std::size_t>(token[1] - L'1')] : token);
    if (token.size() < 2) return true;
  }
  line.append(pattern.substr(done));
  return true;
}

}  // namespace

ListerValues ValuesOf(std::wstring_view name, std::uint64_t bytes, std::wstring_view folder, wchar_t decimalSeparator) {
  const std::wstring_view ending = name.substr(name.size() - 4);
  return {name.substr(0, name.size() - 4), ending, ToUpper(ending.substr(1)),
          Decimals(static_cast<double>(bytes) / kMebibyte, 2, decimalSeparator) + L" Mb", folder};
}

std::wstring ExpandListerPattern(std::wstring_view pattern, const ListerValues& values) {
  const Tokens tokens = TokensOf(values);
  const std::size_t first = std::min(pattern.find_first_not_of(L' '), pattern.size());
  pattern = pattern.substr(first, pattern.find_last_not_of(L' ') + 1 - first);
  std::wstring line;
  if (ExpandPlainly(pattern, tokens, line)) return line;
  line = pattern;
  for (std::size_t i = 0; i < tokens.size(); ++i) line = Replace(line, L"%" + std::to_wstring(i + 1), tokens[i]);
  return line;
}

std::wstring ListerSample(std::wstring_view pattern) {
  return ExpandListerPattern(pattern, {L"01 - Zero", L".mp3", L"MP3", L"5,56 Mb", L"c:\\MP3\\Rock\\SP\\"});
}

}  // namespace tagrix
