#include "fakes/utf8.h"

#include <algorithm>

namespace tagrix {

void AppendUtf8(std::string& bytes, std::wstring_view text) {
  for (const wchar_t c : text) {
    const auto code = static_cast<char32_t>(c);
    if (code < 0x80) {
      bytes += static_cast<char>(code);
      continue;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(kLead[more] | code >> 6 * more);
    for (int left = more - 1; left >= 0; --left) bytes += static_cast<char>(0x80 | (code >> 6 * left & 0x3F));
  }
}

void AssignUtf8(std::wstring& text, std::string_view bytes) {
  text.clear();
  text.reserve(bytes.size());
  for (size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    const size_t more = lead < 0x80 ? 0 : lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    auto code = more == 0 ? lead : lead & (0x3FU >> more);
    const size_t end = std::min(at + more, bytes.size());
    bool valid = lead < 0x80 || (lead >= 0xC2 && lead <= 0xF4 && end == at + more);
    for (; valid && at < end; ++at) {
      valid = (static_cast<unsigned char>(bytes[at]) & 0xC0) == 0x80;
      code = code << 6 | (static_cast<unsigned char>(bytes[at]) & 0x3F);
    }
    text += valid ? static_cast<wchar_t>(code) : L'\xFFFD';
  }
}

}  // namespace tagrix
