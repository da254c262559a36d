// Frames of older versions of ID3v2 as newer ones write them.
#ifndef TAGRIX_TAGS_ID3V2_CONVERSION_H
#define TAGRIX_TAGS_ID3V2_CONVERSION_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tagrix {

struct ConvertedFrame {
  std::string id;
  std::uint16_t flags = 0;
  std::string data;
};

// The frame of 2.3 for one of 2.2, whose id has three letters; nothing when there is no such frame.
std::optional<ConvertedFrame> FromVersion2(std::string_view id, std::string_view data);

// The frame of 2.4 for one of 2.3: its flags stand in other places, and so does what they put before the data. Nothing
// when that is cut off.
std::optional<ConvertedFrame> FromVersion3(std::string_view id, std::uint16_t flags, std::string_view data);

}  // namespace tagrix

#endif
