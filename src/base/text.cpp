#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tagrix {

std::wstring Trim(std::wstring_view text) {
  const size_t first = text.find_first_not_of(L' ');
  if (first == text.npos) return {};
  return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

std::wstring Replace(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
  std::wstring result;
  result.reserve(text.size());
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

std::vector<std::wstring> TextLines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of(L"\r\n", start), text.size());
    lines.emplace_back(text.substr(start, end - start));
    start = end + (text.substr(end, 2) == L"\r\n" ? 2 : 1);
  }
  return lines;
}

std::wstring WithoutControls(std::wstring_view text) {
  std::wstring result(text);
  std::erase_if(result, [](wchar_t c) { return c < L' '; });
  return result;
}

bool IsYear(std::wstring_view text) {
  return text.size() == 4 && text[0] != L'0' &&
         std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::wstring FillMessage(std::wstring text, const std::vector<std::wstring>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    text = Replace(text, L"%%" + std::to_wstring(i + 1) + L"%%", values[i]);
  }
  return text;
}

std::wstring DoubleAmpersands(std::wstring_view text) { return Replace(text, L"&", L"&&"); }

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
  if (digit == last || !((*digit >= '0' && *digit <= '9') || *digit == '.')) return 0;
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
