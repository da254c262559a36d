// Plain functions on text, without locale: the same on every system.
#ifndef TAGRIX_BASE_TEXT_H
#define TAGRIX_BASE_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

// The lines of a text, ended by CR LF, LF or CR; a last line without an end counts.
std::vector<std::wstring> TextLines(std::wstring_view text);

// Whether the text is a year: exactly four digits, the first not 0.
bool IsYear(std::wstring_view text);

// "%%1%%", "%%2%%", ... in a text replaced by the values, in this order.
std::wstring FillMessage(std::wstring text, const std::vector<std::wstring>& values);

// A text as a caption has to be written, where a single "&" marks the access key.
std::wstring DoubleAmpersands(std::wstring_view text);

// The text without control characters, which have no business in names and tags.
std::wstring WithoutControls(std::wstring_view text);

// Removes blanks (U+0020 only) at both ends.
std::wstring Trim(std::wstring_view text);

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
