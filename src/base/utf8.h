// UTF-8, UTF-16, and texts as they stand in the query of an address.
// Source: RFC 3629, RFC 2781.
#ifndef TAGRIX_BASE_UTF8_H
#define TAGRIX_BASE_UTF8_H

#include <optional>
#include <string>
#include <string_view>

namespace tagrix {

// Nothing when the bytes are anything but well-formed UTF-8.
std::optional<std::wstring> FromUtf8(std::string_view bytes);
// Half a surrogate pair becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
// Little-endian, behind a byte order mark.
std::string ToUtf16(std::wstring_view text);

// UTF-8 with everything but ASCII letters, digits and "-._~" percent-encoded, and "+" for a blank.
std::wstring UrlEncoded(std::wstring_view text);

}  // namespace tagrix

#endif
