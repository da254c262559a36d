#include "tags/tag_layout.h"

#include <algorithm>

#include "base/failure.h"
#include "tags/id3v1.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kApe = 32;              // bytes of an APE tag's header, and of its footer
constexpr std::uint64_t kLyricsEnd = 15;        // six digits and "LYRICS200"
constexpr std::uint64_t kLongestLyrics = 5120;  // of 1.00, which doesn't tell its length
constexpr std::uint64_t kExtension = 227;       // of ID3v1

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

std::uint64_t LittleEndian(std::string_view bytes) { return BigEndian({std::string(bytes.rbegin(), bytes.rend())}); }

std::uint64_t ApeLength(std::string_view last) {
  if (last.size() < kApe) return 0;
  const std::string_view footer = last.substr(last.size() - kApe);
  if (!footer.starts_with("APETAGEX")) return 0;
  const bool header = (footer[23] & 0x80) != 0;
  const std::uint64_t length = LittleEndian(footer.substr(12, 4));  // with the footer, without the header
  return length < kApe ? 0 : length + (header ? kApe : 0);
}

std::uint64_t LyricsLength(Reader& reader, std::uint64_t end, std::string_view last) {
  if (last.ends_with("LYRICS200") && last.size() >= kLyricsEnd) {
    std::uint64_t length = 0;
    for (const char c : last.substr(last.size() - kLyricsEnd, 6)) {
      if (c < '0' || c > '9') return 0;
      length = length * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return length + kLyricsEnd;
  }
  if (!last.ends_with("LYRICSEND")) return 0;
  const std::string text = reader.Before(end, kLongestLyrics);
  const std::size_t begin = text.rfind("LYRICSBEGIN");
  return begin == text.npos ? 0 : text.size() - begin;
}

// Of a tag that ends at `end`, other than ID3v1 and ID3v2; 0 when there is none.
std::uint64_t OtherLength(Reader& reader, std::uint64_t end) {
  const std::string last = reader.Before(end, kExtension);
  if (last.size() == kExtension && last.starts_with("TAG+")) return kExtension;
  if (const std::uint64_t length = ApeLength(last)) return length;
  return LyricsLength(reader, end, last);
}

void FindLeading(Reader& reader, TagLayout& layout) {
  std::uint64_t at = 0;
  while (const std::uint64_t length = Id3v2Length(reader.At(at, kId3v2Header), kId3v2HeaderMark)) {
    layout.cut = length > layout.size - at;
    if (layout.cut) return;
    layout.leading.push_back({at, at + length});
    at += length;
  }
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
