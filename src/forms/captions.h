// Captions of controls and their access keys.
#ifndef TAGRIX_FORMS_CAPTIONS_H
#define TAGRIX_FORMS_CAPTIONS_H

#include <string>
#include <string_view>

namespace tagrix {

// A caption as it is read, without the "&" of its access key.
std::wstring WithoutAccessKeys(std::wstring_view caption);
// Its access key as a small letter, 0 when it has none.
wchar_t AccessKeyOf(std::wstring_view caption);

}  // namespace tagrix

#endif
