#include "base/letter_case.h"

#include <algorithm>
#include <cstdint>

#include "base/letter_case_table.h"

namespace tagrix {
namespace {

// `blocks` has 65,536 / kUnitsOfABlock elements.
wchar_t Mapped(wchar_t c, const std::uint8_t* blocks) {
  const auto code = static_cast<char32_t>(c);
  if (code > 0xFFFF) return c;  // only where wchar_t is wider than a UTF-16 unit
  const int difference = kDifferences[blocks[code / kUnitsOfABlock]][code % kUnitsOfABlock];
  return static_cast<wchar_t>(static_cast<std::uint16_t>(c + difference));
}

template <typename Map>
std::wstring Each(std::wstring_view text, Map map) {
  std::wstring result(text);
  for (wchar_t& c : result) c = map(c);
  return result;
}

}  // namespace

wchar_t ToUpperBeyondAscii(wchar_t c) { return Mapped(c, kToUpper); }

wchar_t ToLowerBeyondAscii(wchar_t c) { return Mapped(c, kToLower); }

std::wstring ToUpper(std::wstring_view text) {
  return Each(text, [](wchar_t c) { return ToUpper(c); });
}

std::wstring ToLower(std::wstring_view text) {
  return Each(text, [](wchar_t c) { return ToLower(c); });
}

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return x == y || ToUpper(x) == ToUpper(y); });
}

bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix) {
  return EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool LessIgnoringCase::operator()(std::wstring_view a, std::wstring_view b) const {
  // By way of the capital, so that what is equal is so here, too: a final sigma and a sigma.
  const auto less = [](wchar_t x, wchar_t y) { return x != y && ToLower(ToUpper(x)) < ToLower(ToUpper(y)); };
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less);
}

// FNV-1a over the capitals.
std::size_t HashIgnoringCase::operator()(std::wstring_view text) const {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const wchar_t c : text) hash = (hash ^ static_cast<std::uint64_t>(ToUpper(c))) * 0x100000001B3;
  return static_cast<std::size_t>(hash);
}

}  // namespace tagrix
