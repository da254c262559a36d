// The ANSI code page and the number format of Windows.
#ifndef TAGRIX_WIN32_PORTS_CODE_PAGE_H
#define TAGRIX_WIN32_PORTS_CODE_PAGE_H

#include "platform/code_page.h"

namespace tagrix {

class WinCodePage : public CodePage {
 public:
  std::string ToBytes(std::wstring_view text) override;
  std::wstring ToText(std::string_view bytes) override;
  wchar_t DecimalSeparator() override;
};

}  // namespace tagrix

#endif
