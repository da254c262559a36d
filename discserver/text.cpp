#include "discserver/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <sstream>

namespace discserver {
namespace {

// The characters of the bytes 80 to 9F. Source: the Unicode consortium's table CP1252.TXT.
constexpr std::array<char32_t, 32> kWindows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

std::uint8_t Byte(char c) { return static_cast<std::uint8_t>(c); }

// How long the character at the front of the text is; 0 when it isn't valid UTF-8. Source: RFC 3629, section 4.
std::size_t CharacterLength(std::string_view text) {
  const std::uint8_t lead = Byte(text[0]);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  const std::uint8_t least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint8_t most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (Byte(text[1]) < least || Byte(text[1]) > most) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((Byte(text[i]) & 0xC0) != 0x80) return 0;
  }
  return length;
}

// How many characters of ASCII the text begins with, in steps of eight.
std::size_t AsciiLength(std::string_view text) {
  std::size_t length = 0;
  for (std::uint64_t eight = 0; length + sizeof eight <= text.size(); length += sizeof eight) {
    std::memcpy(&eight, text.data() + length, sizeof eight);
    if ((eight & 0x8080808080808080U) != 0) break;
  }
  return length;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    text.remove_prefix(AsciiLength(text));
    if (text.empty()) break;
    const std::size_t length = CharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t c) {  // below U+10000
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | c >> 6);
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | c >> 12);
    text += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

char32_t Decode(std::string_view character) {
  char32_t value = Byte(character[0]);
  if (character.size() > 1) value &= 0x7FU >> character.size();
  for (std::size_t i = 1; i < character.size(); ++i) value = value << 6 | (Byte(character[i]) & 0x3F);
  return value;
}

char Latin1Of(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  const auto found = std::find(kWindows1252.begin(), kWindows1252.end(), c);
  return found == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

}  // namespace

std::string ToUtf8(std::string bytes) {
  if (IsUtf8(bytes)) return bytes;
  std::string text;
  for (const char c : bytes) {
    const std::uint8_t byte = Byte(c);
    AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
  }
  return text;
}

std::string ToLatin1(std::string_view utf8) {
  std::string text;
  for (std::size_t length = 0; !utf8.empty(); utf8.remove_prefix(length)) {
    length = std::max<std::size_t>(CharacterLength(utf8), 1);
    text += Latin1Of(Decode(utf8.substr(0, length)));
  }
  return text;
}

std::vector<std::string> Words(std::string_view text) {
  std::istringstream pieces{std::string(text)};
  return {std::istream_iterator<std::string>(pieces), {}};
}

}  // namespace discserver
