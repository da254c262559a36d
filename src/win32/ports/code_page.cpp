#include "win32/ports/code_page.h"

#include <windows.h>

#include <array>

namespace tagrix {

std::string WinCodePage::ToBytes(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int need = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<size_t>(need), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), need, nullptr, nullptr);
  return bytes;
}

std::wstring WinCodePage::ToText(std::string_view bytes) {
  const int length = static_cast<int>(bytes.size());
  const int need = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
  std::wstring text(static_cast<size_t>(need), L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), need);
  return text;
}

wchar_t WinCodePage::DecimalSeparator() {
  std::array<wchar_t, 4> separator{};
  const int length =
      GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(), static_cast<int>(separator.size()));
  return length > 1 ? separator[0] : L'.';
}

}  // namespace tagrix
