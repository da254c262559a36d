// Port to the system's single-byte (ANSI) code page, where text and bytes meet, and to how it writes numbers.
#ifndef TAGRIX_PLATFORM_CODE_PAGE_H
#define TAGRIX_PLATFORM_CODE_PAGE_H

#include <string>
#include <string_view>

namespace tagrix {

class CodePage {
 public:
  virtual ~CodePage() = default;
  // Characters outside the code page become the system's default replacement.
  virtual std::string ToBytes(std::wstring_view text) = 0;
  virtual std::wstring ToText(std::string_view bytes) = 0;
  // What the user's system writes between a number's units and its decimals.
  virtual wchar_t DecimalSeparator() = 0;
};

// Whether the code page holds every character of the text.
inline bool InCodePage(CodePage& codePage, std::wstring_view text) {
  return codePage.ToText(codePage.ToBytes(text)) == text;
}

}  // namespace tagrix

#endif
