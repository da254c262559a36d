// Plain functions on text, without locale: the same on every system.
#ifndef TAGRIX_CORE_TEXT_H
#define TAGRIX_CORE_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

// Removes blanks (U+0020 only) at both ends.
std::wstring Trim(std::wstring_view text);

// Simple case mapping, one character to one, for Latin, Greek and Cyrillic letters.
wchar_t ToLowerBeyondAscii(wchar_t c);
wchar_t ToUpper(wchar_t c);
inline wchar_t ToLower(wchar_t c) {
  if (c >= 0x80) return ToLowerBeyondAscii(c);
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}
std::wstring ToLower(std::wstring_view text);
std::wstring ToUpper(std::wstring_view text);
bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b);
bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix);
// Orders by character code, letter case ignored.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::wstring_view a, std::wstring_view b) const;
};

// For hashed sets of texts whose letter case doesn't matter.
struct HashIgnoringCase {
  std::size_t operator()(std::wstring_view text) const;
};
struct SameIgnoringCase {
  bool operator()(std::wstring_view a, std::wstring_view b) const { return EqualIgnoringCase(a, b); }
};

// Replaces every occurrence of `from` (not empty), left to right, without looking at what was put in.
std::wstring Replace(std::wstring_view text, std::wstring_view from, std::wstring_view to);
// The pieces between the separators; a text without one yields itself, an empty text one empty piece.
std::vector<std::wstring> Split(std::wstring_view text, std::wstring_view separator);

// The decimal number that the text begins with after any blanks: sign, digits, fraction, exponent; 0 when there is
// none.
double LeadingNumber(std::wstring_view text);
// The same, halves rounded to the even neighbour and held within a 32-bit integer.
int LeadingInteger(std::wstring_view text);

// The nearest 32-bit integer, halves to the even neighbour; values beyond are held at its ends.
int RoundToInteger(double value);
// With `places` decimals (0 to 6), halves away from zero: 5.5599 with 2 and "," gives "5,56".
std::wstring Decimals(double value, int places, wchar_t separator);

// With at least two digits: 1 gives "01", 123 gives "123".
std::wstring TwoDigits(int number);

// For texts of ASCII letters only.
std::wstring Widen(std::string_view ascii);

}  // namespace tagrix

#endif
