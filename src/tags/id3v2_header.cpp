#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

std::string Bytes(std::uint32_t number, int bits) {
  std::string bytes;
  for (int shift = 3 * bits; shift >= 0; shift -= bits) {
    bytes += static_cast<char>(number >> shift & ((1U << bits) - 1));
  }
  return bytes;
}

}  // namespace

std::uint32_t BigEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char c : bytes) number = number << 8 | static_cast<unsigned char>(c);
  return number;
}

std::optional<std::uint32_t> Syncsafe(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char c : bytes) {
    if ((c & 0x80) != 0) return std::nullopt;
    number = number << 7 | static_cast<unsigned char>(c);
  }
  return number;
}

std::string BigEndianBytes(std::uint32_t number) { return Bytes(number, 8); }
std::string SyncsafeBytes(std::uint32_t number) { return Bytes(number, 7); }

std::uint64_t Id3v2Length(std::string_view bytes, std::string_view mark) {
  constexpr char kFooter = 0x10, kNone = '\xFF';
  if (bytes.size() < kId3v2Header || !bytes.starts_with(mark) || bytes[3] == kNone || bytes[4] == kNone) return 0;
  const auto size = Syncsafe(bytes.substr(6, 4));
  if (!size) return 0;
  return *size + kId3v2Header * ((bytes[5] & kFooter) != 0 ? 2 : 1);
}

}  // namespace tagrix
