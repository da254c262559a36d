// Letter case as Windows's file names and its invariant locale have it, the same on every system.
#ifndef TAGRIX_BASE_LETTER_CASE_H
#define TAGRIX_BASE_LETTER_CASE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace tagrix {

// Unicode's simple mapping (https://www.unicode.org/reports/tr44/, UnicodeData.txt) of one UTF-16 unit, where it leads
// back; what has no other case, and each half of a surrogate pair, stays as it is.
wchar_t ToUpperBeyondAscii(wchar_t c);
wchar_t ToLowerBeyondAscii(wchar_t c);
inline wchar_t ToUpper(wchar_t c) {
  if (c >= 0x80) return ToUpperBeyondAscii(c);
  return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
}
inline wchar_t ToLower(wchar_t c) {
  if (c >= 0x80) return ToLowerBeyondAscii(c);
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}
std::wstring ToUpper(std::wstring_view text);
std::wstring ToLower(std::wstring_view text);

// Texts are equal when their capitals are, as Windows compares file names.
bool EqualIgnoringCase(std::wstring_view a, std::wstring_view b);
bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix);

// Orders by the code of the small letters.
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

}  // namespace tagrix

#endif
