#include "tags/standard_id3v2.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "base/utf8.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

// Text encodings, as the byte before a text names them.
constexpr char kLatin1 = 0, kUtf16 = 1, kUtf8 = 3;

char EncodingFor(std::wstring_view text, int version) {
  if (FitsLatin1(text)) return kLatin1;
  return version == 4 ? kUtf8 : kUtf16;
}

std::string Encoded(std::wstring_view text, char encoding) {
  if (encoding == kUtf8) return ToUtf8(text);
  if (encoding == kUtf16) return ToUtf16(text);
  std::string bytes;
  for (const wchar_t c : text) bytes += static_cast<char>(c);
  return bytes;
}

std::string TextFrame(std::string_view id, std::uint16_t flags, std::string_view data, int version) {
  const auto size = static_cast<std::uint32_t>(data.size());
  std::string frame(id);
  frame += version == 4 ? SyncsafeBytes(size) : BigEndianBytes(size);
  frame += BigEndianBytes(flags).substr(2);
  return frame.append(data);
}

std::string TextFrame(std::string_view id, const std::wstring& value, int version) {
  const std::wstring text = Trim(value);
  if (text.empty()) return {};
  const char encoding = EncodingFor(text, version);
  return TextFrame(id, 0, encoding + Encoded(text, encoding), version);
}

std::string CommentFrame(const std::wstring& value, int version) {
  const std::wstring text = Trim(value);
  if (text.empty()) return {};
  const char encoding = EncodingFor(text, version);
  const std::string noDescription = Encoded({}, encoding) + std::string(encoding == kUtf16 ? 2 : 1, '\0');
  return TextFrame("COMM", 0, encoding + ("eng" + noDescription + Encoded(text, encoding)), version);
}

}  // namespace

bool FitsLatin1(std::wstring_view text) {
  return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x80 || (c >= 0xA0 && c <= 0xFF); });
}

bool IsReplaced(const Id3v2Frame& frame, int version) {
  constexpr std::string_view kReplaced[] = {"TIT2", "TRCK", "TPE1", "TALB", "TYER", "TDRC", "TCON"};
  if (std::find(std::begin(kReplaced), std::end(kReplaced), frame.id) != std::end(kReplaced)) return true;
  if (frame.id != "COMM") return false;
  const std::string data = PlainData(frame, version);
  if (data.size() < 5) return false;
  const std::string_view comment = std::string_view(data).substr(4);  // behind encoding and language
  constexpr std::string_view kOurs("engComments\0", 12);
  if (data[0] == kLatin1 || data[0] == kUtf8) return comment[0] == '\0' || data.substr(1).starts_with(kOurs);
  const bool marked = comment.starts_with("\xFF\xFE") || comment.starts_with("\xFE\xFF");
  return comment.substr(marked ? 2 : 0).starts_with(std::string_view("\0\0", 2));
}

std::string BuildStandardId3v2(const Id3v2Frames& old, const TagFields& fields) {
  const int version = old.version;
  const std::string ours = TextFrame("TIT2", fields.title, version) + TextFrame("TPE1", fields.artist, version) +
                           TextFrame("TALB", fields.album, version) +
                           TextFrame(version == 4 ? "TDRC" : "TYER", fields.year, version) +
                           TextFrame("TCON", fields.genre, version) + TextFrame("TRCK", fields.track, version) +
                           CommentFrame(fields.comment, version);
  std::uint64_t size = kId3v2Header + ours.size();
  for (const Id3v2Frame& frame : old.frames) size += kId3v2Header + frame.data.size();
  if (size > kLongestId3v2) throw Failure(Action::Tag, {}, Cause::TooLarge);

  std::string tag;
  tag.reserve(static_cast<std::size_t>(size));
  tag = std::string(kId3v2HeaderMark) + static_cast<char>(version) + std::string(6, '\0');
  for (const Id3v2Frame& frame : old.frames) {
    if (!IsReplaced(frame, version)) tag += TextFrame(frame.id, frame.flags, frame.data, version);
  }
  tag += ours;
  const std::size_t length = tag.size();
  return Padded(std::move(tag), length);
}

std::string Padded(std::string tag, std::size_t length) {
  tag.resize(length);
  return tag.replace(6, 4, SyncsafeBytes(static_cast<std::uint32_t>(length - kId3v2Header)));
}

}  // namespace tagrix
