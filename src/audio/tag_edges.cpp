#include "audio/tag_edges.h"

#include <algorithm>
#include <string_view>

#include "tags/end_tags.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

constexpr std::size_t kId3v1 = 128;
constexpr std::size_t kEndBlock = 4096;  // holds the ends of all tags that most files have

std::uint64_t LengthAt(ByteWindow& bytes, std::uint64_t at) {
  const std::string_view start = bytes.View(at, kApeHeader);
  if (const std::uint64_t length = Id3v2Length(start, kId3v2HeaderMark)) return length;
  if (const std::uint64_t length = ApeLength(start, false)) return length;
  return start.starts_with("TAG") ? kId3v1 : 0;
}

std::uint64_t LengthBefore(ByteWindow& bytes, std::uint64_t end) {
  const auto at = [&](std::size_t back, std::size_t count) {
    return end < back ? std::string_view() : bytes.View(end - back, count);
  };
  if (at(kId3v1, 3) == "TAG") return at(kId3v1 + kId3v1Extension, 4) == "TAG+" ? kId3v1 + kId3v1Extension : kId3v1;
  if (const std::uint64_t length = ApeLength(at(kApeHeader, kApeHeader), true)) return length;
  if (const std::uint64_t length = Id3v2Length(at(kId3v2Header, kId3v2Header), kId3v2FooterMark)) return length;
  return LyricsLength([&](std::size_t count) {
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, end));
    return bytes.View(end - count, count);
  });
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
