#include "tags/tag_layout.h"

#include <algorithm>

#include "base/failure.h"
#include "tags/end_tags.h"
#include "tags/id3v1.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

class Reader {
 public:
  explicit Reader(File& file) : file_(file) {}

  std::string At(std::uint64_t offset, std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(count), '\0');
    bytes.resize(file_.Read(offset, bytes.data(), bytes.size()));
    return bytes;
  }
  // The last bytes before an end, as many as there are.
  std::string Before(std::uint64_t end, std::uint64_t count) {
    count = std::min(count, end);
    return At(end - count, count);
  }

 private:
  File& file_;
};

// Of a tag that ends at `end`, other than ID3v1 and ID3v2; 0 when there is none.
std::uint64_t OtherLength(Reader& reader, std::uint64_t end) {
  if (const std::string last = reader.Before(end, kId3v1Extension);
      last.size() == kId3v1Extension && last.starts_with("TAG+")) {
    return kId3v1Extension;
  }
  if (const std::uint64_t length = ApeLength(reader.Before(end, kApeHeader), true)) return length;
  std::string last;
  return LyricsLength([&](std::size_t count) -> std::string_view { return last = reader.Before(end, count); });
}

void FindLeading(Reader& reader, TagLayout& layout) {
  std::uint64_t at = 0;
  while (const std::uint64_t length = Id3v2Length(reader.At(at, kId3v2Header), kId3v2HeaderMark)) {
    layout.cut = length > layout.size - at;
    if (layout.cut) return;
    layout.leading.push_back({at, at + length});
    at += length;
  }
  // What is written behind the beginning of a header would make a whole one of it.
  const std::string rest = reader.At(at, kId3v2Header);
  layout.cut = rest.size() < kId3v2Header && rest.starts_with(kId3v2HeaderMark);
}

void FindAppended(Reader& reader, TagLayout& layout) {
  const std::uint64_t begin = layout.Sound();
  for (std::uint64_t end = layout.End(); end > begin;) {
    const std::uint64_t id3v2 = Id3v2Length(reader.Before(end, kId3v2Header), kId3v2FooterMark);
    const std::uint64_t length = id3v2 > 0 ? id3v2 : OtherLength(reader, end);
    if (length == 0 || length > end - begin) return;
    end -= length;
    if (id3v2 == 0) continue;
    // The header has to say what the footer does.
    if (Id3v2Length(reader.At(end, kId3v2Header), kId3v2HeaderMark) != length) return;
    layout.appended.insert(layout.appended.begin(), {end, end + length});
  }
}

}  // namespace

TagLayout LocateTags(File& file) {
  Reader reader(file);
  TagLayout layout;
  layout.size = file.Size();
  FindLeading(reader, layout);
  if (layout.size - layout.Sound() >= TagLayout::kId3v1) {
    // The letters may also be those of "APETAGEX", three bytes before.
    const std::string last = reader.Before(layout.size, TagLayout::kId3v1 + 3);
    const std::size_t mark = last.size() - TagLayout::kId3v1;
    layout.id3v1 = last.compare(mark, kId3v1Mark.size(), kId3v1Mark) == 0 && last.find("APETAGEX") != 0;
  }
  FindAppended(reader, layout);
  return layout;
}

std::vector<std::string> ReadSpans(File& file, const std::vector<TagSpan>& spans) {
  std::vector<std::string> all;
  for (const TagSpan& span : spans) {
    std::string bytes(static_cast<std::size_t>(span.end - span.begin), '\0');
    if (file.Read(span.begin, bytes.data(), bytes.size()) != bytes.size()) {
      throw Failure(Action::Read, {}, Cause::Shrunk);
    }
    all.push_back(std::move(bytes));
  }
  return all;
}

}  // namespace tagrix
