// Wide text to UTF-8 and back, where wide characters are whole code points.
#ifndef TAGRIX_TESTS_FAKES_UTF8_H
#define TAGRIX_TESTS_FAKES_UTF8_H

#include <string>
#include <string_view>

namespace tagrix {

void AppendUtf8(std::string& bytes, std::wstring_view text);
// Replaces the content of `text`; what is no UTF-8 becomes U+FFFD.
void AssignUtf8(std::wstring& text, std::string_view bytes);

}  // namespace tagrix

#endif
