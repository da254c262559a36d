#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tagrix {
namespace {

// Ranges whose upper- and lower-case letters alternate, the even code being the capital.
bool AlternatesFromEven(wchar_t c) {
  return (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177) ||
         (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) || (c >= 0x1E00 && c <= 0x1E95);
}

// Likewise, the odd code being the capital.
bool AlternatesFromOdd(wchar_t c) { return (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E); }

bool Within(wchar_t c, wchar_t first, wchar_t last) { return c >= first && c <= last; }

wchar_t Shift(wchar_t c, int by) { return static_cast<wchar_t>(static_cast<int>(c) + by); }

}  // namespace

std::wstring Trim(std::wstring_view text) {
  const size_t first = text.find_first_not_of(L' ');
  if (first == text.npos) return {};
  return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

wchar_t ToLowerBeyondAscii(wchar_t c) {
  if (c < 0xC0) return c;
  if (Within(c, 0xC0, 0xDE) && c != 0xD7) return Shift(c, 32);
  if (AlternatesFromEven(c) && c % 2 == 0) return Shift(c, 1);
  if (AlternatesFromOdd(c) && c % 2 == 1) return Shift(c, 1);
  if (c == 0x178) return 0xFF;
  if (c == 0x386) return 0x3AC;
  if (Within(c, 0x388, 0x38A)) return Shift(c, 37);
  if (c == 0x38C) return 0x3CC;
  if (Within(c, 0x38E, 0x38F)) return Shift(c, 63);
  if (Within(c, 0x391, 0x3AB) && c != 0x3A2) return Shift(c, 32);
  if (Within(c, 0x410, 0x42F)) return Shift(c, 32);
  if (Within(c, 0x400, 0x40F)) return Shift(c, 80);
  return c;
}

wchar_t ToUpper(wchar_t c) {
  if (Within(c, L'a', L'z')) return Shift(c, -32);
  if (c < 0xE0) return c;
  if (Within(c, 0xE0, 0xFE) && c != 0xF7) return Shift(c, -32);
  if (c == 0xFF) return 0x178;
  if (AlternatesFromEven(c) && c % 2 == 1) return Shift(c, -1);
  if (AlternatesFromOdd(c) && c % 2 == 0) return Shift(c, -1);
  if (c == 0x3AC) return 0x386;
  if (Within(c, 0x3AD, 0x3AF)) return Shift(c, -37);
  if (c == 0x3CC) return 0x38C;
  if (Within(c, 0x3CD, 0x3CE)) return Shift(c, -63);
  if (Within(c, 0x3B1, 0x3CB) && c != 0x3C2) return Shift(c, -32);
  if (Within(c, 0x430, 0x44F)) return Shift(c, -32);
  if (Within(c, 0x450, 0x45F)) return Shift(c, -80);
  return c;
}

std::wstring ToLower(std::wstring_view text) {
  std::wstring result(text);
  for (wchar_t& c : result) c = ToLower(c);
  return result;
}

std::wstring ToUpper(std::wstring_view text) {
  std::wstring result(text);
  for (wchar_t& c : result) c = ToUpper(c);
  return result;
}

bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return x == y || ToLower(x) == ToLower(y); });
}

bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix) {
  return EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool LessIgnoringCase::operator()(std::wstring_view a, std::wstring_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](wchar_t x, wchar_t y) { return ToLower(x) < ToLower(y); });
}

// FNV-1a over the lower-case letters.
std::size_t HashIgnoringCase::operator()(std::wstring_view text) const {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const wchar_t c : text) hash = (hash ^ static_cast<std::uint64_t>(ToLower(c))) * 0x100000001B3;
  return static_cast<std::size_t>(hash);
}

std::wstring Replace(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
  std::wstring result;
  size_t start = 0;
  for (size_t at = text.find(from); at != text.npos; at = text.find(from, start)) {
    result.append(text, start, at - start).append(to);
    start = at + from.size();
  }
  return result.append(text, start);
}

std::vector<std::wstring> Split(std::wstring_view text, std::wstring_view separator) {
  std::vector<std::wstring> pieces;
  size_t start = 0;
  for (size_t at = text.find(separator); at != text.npos; at = text.find(separator, start)) {
    pieces.emplace_back(text.substr(start, at - start));
    start = at + separator.size();
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

double LeadingNumber(std::wstring_view text) {
  const size_t start = std::min(text.find_first_not_of(L" \t"), text.size());
  std::string digits;
  for (const wchar_t c : text.substr(start)) {
    if (c > 127) break;
    digits += static_cast<char>(c);
  }
  const char* first = digits.data();
  const char* last = first + digits.size();
  if (first != last && *first == '+' && last - first > 1 && first[1] != '-') ++first;
  // from_chars would also take "inf" and "nan", which are no numbers here.
  const char* digit = first != last && *first == '-' ? first + 1 : first;
  if (digit == last || !(Within(*digit, '0', '9') || *digit == '.')) return 0;
  double value = 0;
  return std::from_chars(first, last, value).ec == std::errc() ? value : 0;
}

int LeadingInteger(std::wstring_view text) { return RoundToInteger(LeadingNumber(text)); }

int RoundToInteger(double value) {
  constexpr double kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(std::nearbyint(value), kLeast, kMost));
}

std::wstring Decimals(double value, int places, wchar_t separator) {
  std::int64_t steps = 1;
  for (int i = 0; i < places; ++i) steps *= 10;
  const std::int64_t units = std::llround(std::abs(value) * static_cast<double>(steps));
  // std::to_string is much quicker than std::to_wstring, and catalogues hold a number a line.
  std::wstring text = (value < 0 && units > 0 ? L"-" : L"") + Widen(std::to_string(units / steps));
  if (places > 0) text += separator + Widen(std::to_string(steps + units % steps)).substr(1);
  return text;
}

std::wstring TwoDigits(int number) {
  const std::wstring text = std::to_wstring(std::abs(number));
  return (number < 0 ? L"-" : L"") + std::wstring(text.size() < 2 ? 1 : 0, L'0') + text;
}

std::wstring Widen(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

}  // namespace tagrix
