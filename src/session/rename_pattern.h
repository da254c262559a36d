// The patterns that make file and playlist names out of an album's data.
#ifndef TAGRIX_SESSION_RENAME_PATTERN_H
#define TAGRIX_SESSION_RENAME_PATTERN_H

#include <cstdint>
#include <string>
#include <string_view>

namespace tagrix {

// Puts the values in the place of %1 artist, %3 album, %6 track (at least two digits), %2 title, %4 year and %5 genre,
// one kind after the other in this order, so that a token within a value is replaced by the kinds that follow; then
// deletes what no file name may hold. Artist, title and album are trimmed. A name that grows longer than any path is
// filled no further.
std::wstring ExpandPattern(std::wstring_view pattern, std::wstring_view artist, std::wstring_view album,
                           std::int16_t track, std::wstring_view title, std::wstring_view year,
                           std::wstring_view genre);

// What a rename pattern and a playlist pattern make of a sample album of the given year.
std::wstring PatternSample(std::wstring_view pattern, std::wstring_view year);
std::wstring PlaylistSample(std::wstring_view pattern, std::wstring_view year);

}  // namespace tagrix

#endif
