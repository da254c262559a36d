// The tags other than ID3 that stand behind the sound, and sometimes before it (APE 1 and 2, Lyrics3 1.00 and 2.00 as
// published on wiki.hydrogenaud.io and id3.org).
#ifndef TAGRIX_TAGS_END_TAGS_H
#define TAGRIX_TAGS_END_TAGS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace tagrix {

inline constexpr std::size_t kApeHeader = 32;        // bytes; a footer has as many
inline constexpr std::size_t kId3v1Extension = 227;  // bytes before an ID3v1 tag, from "TAG+" on

// The length of the tag that a header or a footer tells of, with both; 0 when the bytes are none.
std::uint64_t ApeLength(std::string_view bytes, bool footer);

// The length of the Lyrics3 tag behind which `last` gives so many bytes, fewer only at the start of the file; 0 when
// there is none.
std::uint64_t LyricsLength(const std::function<std::string_view(std::size_t)>& last);

}  // namespace tagrix

#endif
