// The genre names of "styles.dat" and the numbers of ID3v1's genres.
#ifndef TAGRIX_TAGS_GENRES_H
#define TAGRIX_TAGS_GENRES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

// The first position of the name in the list, letter case ignored; 135 when it isn't there.
std::size_t GetIDXFromStyleName(const std::vector<std::wstring>& styles, std::wstring_view name);

}  // namespace tagrix

#endif
