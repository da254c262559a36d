// The ten bytes before an ID3v2 tag, and the numbers in it (id3.org: id3v2-00, id3v2.3.0, id3v2.4.0-structure).
#ifndef TAGRIX_TAGS_ID3V2_HEADER_H
#define TAGRIX_TAGS_ID3V2_HEADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tagrix {

inline constexpr std::size_t kId3v2Header = 10;  // bytes; a footer has as many
inline constexpr std::string_view kId3v2HeaderMark = "ID3", kId3v2FooterMark = "3DI";
inline constexpr std::uint32_t kSyncsafeEnd = 1U << 28;  // what is smaller can be written with 7 bits a byte

// A number of up to four bytes, the first one the highest.
std::uint32_t BigEndian(std::string_view bytes);
// Likewise with 7 bits a byte; nothing when a byte has its eighth bit set.
std::optional<std::uint32_t> Syncsafe(std::string_view bytes);

std::string BigEndianBytes(std::uint32_t number);
std::string SyncsafeBytes(std::uint32_t number);

// The length of the tag that a header or a footer tells of, with both; 0 when the bytes are none.
std::uint64_t Id3v2Length(std::string_view bytes, std::string_view mark);

}  // namespace tagrix

#endif
