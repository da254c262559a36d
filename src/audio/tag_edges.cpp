#include "audio/tag_edges.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "audio/mpeg_frame.h"

namespace tagrix {
namespace {

constexpr std::size_t kId3v2Header = 10, kId3v1 = 128, kId3v1Extension = 227, kApeHeader = 32;
constexpr std::size_t kLyricsSize = 6, kLyricsEnd = 9;  // the digits, and "LYRICS200" or "LYRICSEND"
constexpr std::size_t kLongestLyrics1 = 5100;
constexpr std::size_t kEndBlock = 4096;  // holds the ends of all tags that most files have

// With header and footer; 0 for bytes that are none. A footer is a header with other first letters.
std::uint64_t Id3v2Length(std::string_view header, std::string_view letters) {
  if (header.size() < kId3v2Header || !header.starts_with(letters)) return 0;
  if (header[3] == '\xFF' || header[4] == '\xFF') return 0;
  std::uint32_t size = 0;
  for (const char c : header.substr(6, 4)) {
    if ((c & 0x80) != 0) return 0;
    size = size << 7 | static_cast<std::uint32_t>(c);
  }
  const bool footer = (header[5] & 0x10) != 0;
  return size + kId3v2Header * (footer ? 2U : 1U);
}

std::uint32_t LittleEndian(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

// A header or a footer of an APE tag: whether it is one, the length of all it tells of.
std::uint64_t ApeLength(std::string_view bytes, bool footer) {
  if (bytes.size() < kApeHeader || !bytes.starts_with("APETAGEX")) return 0;
  const std::uint32_t size = LittleEndian(bytes, 12), flags = LittleEndian(bytes, 20);  // the header doesn't count
  const bool isHeader = (flags >> 29 & 1) != 0, hasHeader = (flags >> 31 & 1) != 0;
  if (isHeader == footer || size < kApeHeader) return 0;
  return std::uint64_t{size} + (isHeader || hasHeader ? kApeHeader : 0);
}

std::uint64_t LengthAt(ByteWindow& bytes, std::uint64_t at) {
  const std::string_view start = bytes.View(at, kApeHeader);
  if (const std::uint64_t length = Id3v2Length(start, "ID3")) return length;
  if (const std::uint64_t length = ApeLength(start, false)) return length;
  return start.starts_with("TAG") ? kId3v1 : 0;
}

// Lyrics3 2.00 tells its length in six digits, 1.00 doesn't.
std::uint64_t LyricsLength(ByteWindow& bytes, std::uint64_t end) {
  const std::string_view last = bytes.View(end - kLyricsEnd - kLyricsSize, kLyricsEnd + kLyricsSize);
  if (last.ends_with("LYRICS200")) {
    std::uint64_t size = 0;
    for (const char c : last.substr(0, kLyricsSize)) {
      if (c < '0' || c > '9') return 0;
      size = size * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return size + kLyricsSize + kLyricsEnd;
  }
  if (!last.ends_with("LYRICSEND")) return 0;
  const auto reach = static_cast<std::size_t>(std::min<std::uint64_t>(end, kLongestLyrics1 + 20));
  const std::string_view text = bytes.View(end - reach, reach);
  const std::size_t begin = text.rfind("LYRICSBEGIN");
  return begin == text.npos ? 0 : reach - begin;
}

std::uint64_t LengthBefore(ByteWindow& bytes, std::uint64_t end) {
  const auto at = [&](std::size_t back, std::size_t count) {
    return end < back ? std::string_view() : bytes.View(end - back, count);
  };
  if (at(kId3v1, 3) == "TAG") return at(kId3v1 + kId3v1Extension, 4) == "TAG+" ? kId3v1 + kId3v1Extension : kId3v1;
  if (const std::uint64_t length = ApeLength(at(kApeHeader, kApeHeader), true)) return length;
  if (const std::uint64_t length = Id3v2Length(at(kId3v2Header, kId3v2Header), "3DI")) return length;
  return end < kLyricsSize + kLyricsEnd ? 0 : LyricsLength(bytes, end);
}

}  // namespace

std::uint64_t SkipTags(ByteWindow& bytes, std::uint64_t at, std::uint64_t end) {
  while (at < end) {
    const std::uint64_t length = LengthAt(bytes, at);
    if (length == 0 || length > end - at) break;
    at += length;
  }
  return at;
}

std::uint64_t StartOfEndTags(ByteWindow& bytes, std::uint64_t begin) {
  std::uint64_t end = bytes.Size();
  if (end > begin) bytes.View(end - std::min<std::uint64_t>(end - begin, kEndBlock), kEndBlock);
  while (end > begin) {
    const std::uint64_t length = LengthBefore(bytes, end);
    if (length == 0 || length > end - begin) break;
    end -= length;
  }
  return end;
}

}  // namespace tagrix
