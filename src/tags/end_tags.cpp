#include "tags/end_tags.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

constexpr std::size_t kLyricsDigits = 6, kLyricsMark = 9;  // of 2.00, which tells its length before "LYRICS200"
constexpr std::size_t kLongestLyrics = 5120;               // of 1.00, which doesn't

std::uint32_t LittleEndian(std::string_view bytes) { return BigEndian({std::string(bytes.rbegin(), bytes.rend())}); }

}  // namespace

std::uint64_t ApeLength(std::string_view bytes, bool footer) {
  if (bytes.size() < kApeHeader || !bytes.starts_with("APETAGEX")) return 0;
  const std::uint32_t size = LittleEndian(bytes.substr(12, 4));  // the header doesn't count
  const std::uint32_t flags = LittleEndian(bytes.substr(20, 4));
  const bool isHeader = (flags >> 29 & 1) != 0, hasHeader = (flags >> 31 & 1) != 0;
  if (isHeader == footer || size < kApeHeader) return 0;
  return std::uint64_t{size} + (isHeader || hasHeader ? kApeHeader : 0);
}

std::uint64_t LyricsLength(const std::function<std::string_view(std::size_t)>& last) {
  constexpr std::size_t kEnd = kLyricsDigits + kLyricsMark;
  const std::string_view end = last(kEnd);
  if (end.size() == kEnd && end.ends_with("LYRICS200")) {
    const std::string_view digits = end.substr(0, kLyricsDigits);
    if (digits.find_first_not_of("0123456789") != digits.npos) return 0;
    std::uint64_t length = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), length);
    return length + kEnd;
  }
  if (!end.ends_with("LYRICSEND")) return 0;
  const std::string_view text = last(kLongestLyrics);
  const std::size_t begin = text.rfind("LYRICSBEGIN");
  return begin == text.npos ? 0 : text.size() - begin;
}

}  // namespace tagrix
