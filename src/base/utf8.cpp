#include "base/utf8.h"

#include <cstdint>

namespace tagrix {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD, kGreatest = 0x10FFFF, kFirstBeyond = 0x10000;
constexpr std::uint32_t kHigh = 0xD800, kLow = 0xDC00, kPastSurrogates = 0xE000;

bool Surrogate(std::uint32_t c) { return c >= kHigh && c < kPastSurrogates; }

// A sequence by its first byte; 0 bytes when none begins so.
struct Sequence {
  std::size_t size;
  std::uint32_t bits;   // of the first byte
  std::uint32_t least;  // character that needs so many bytes
};
Sequence SequenceOf(unsigned char first) {
  if (first < 0x80) return {1, first, 0};
  if (first >= 0xC0 && first < 0xE0) return {2, first & 0x1Fu, 0x80};
  if (first >= 0xE0 && first < 0xF0) return {3, first & 0x0Fu, 0x800};
  if (first >= 0xF0 && first < 0xF8) return {4, first & 0x07u, kFirstBeyond};
  return {0, 0, 0};
}

void AppendWide(std::uint32_t c, std::wstring& text) {
  if (sizeof(wchar_t) == 2 && c >= kFirstBeyond) {
    text += static_cast<wchar_t>(kHigh + ((c - kFirstBeyond) >> 10));
    c = kLow + ((c - kFirstBeyond) & 0x3FF);
  }
  text += static_cast<wchar_t>(c);
}

void AppendUtf8(std::uint32_t c, std::string& bytes) {
  const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    bytes += static_cast<char>(c);
  } else if (c < 0x800) {
    bytes += static_cast<char>(0xC0 | (c >> 6));
    tail(0);
  } else if (c < kFirstBeyond) {
    bytes += static_cast<char>(0xE0 | (c >> 12));
    tail(6);
    tail(0);
  } else {
    bytes += static_cast<char>(0xF0 | (c >> 18));
    for (const int shift : {12, 6, 0}) tail(shift);
  }
}

}  // namespace

std::optional<std::wstring> FromUtf8(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto [size, bits, least] = SequenceOf(static_cast<unsigned char>(bytes[0]));
    if (size == 0 || size > bytes.size()) return std::nullopt;
    std::uint32_t c = bits;
    for (std::size_t i = 1; i < size; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if ((byte & 0xC0) != 0x80) return std::nullopt;
      c = c << 6 | (byte & 0x3Fu);
    }
    if (c < least || c > kGreatest || Surrogate(c)) return std::nullopt;
    AppendWide(c, text);
    bytes.remove_prefix(size);
  }
  return text;
}

std::string ToUtf8(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t c = static_cast<char32_t>(text[i]);
    if (Surrogate(c)) {
      const std::uint32_t next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0U;
      const bool pair = c < kLow && next >= kLow && next < kPastSurrogates;
      c = pair ? kFirstBeyond + ((c - kHigh) << 10) + (next - kLow) : kReplacement;
      if (pair) ++i;
    }
    AppendUtf8(c, bytes);
  }
  return bytes;
}

std::string ToUtf16(std::wstring_view text) {
  std::string bytes = "\xFF\xFE";
  const auto append = [&](std::uint32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  };
  for (const wchar_t wide : text) {
    const std::uint32_t c = static_cast<char32_t>(wide);
    if (c >= kFirstBeyond) append(kHigh + ((c - kFirstBeyond) >> 10));
    append(c >= kFirstBeyond ? kLow + ((c - kFirstBeyond) & 0x3FF) : c);
  }
  return bytes;
}

std::wstring UrlEncoded(std::wstring_view text) {
  constexpr std::wstring_view kHex = L"0123456789ABCDEF";
  constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  std::wstring encoded;
  for (const char c : ToUtf8(text)) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != kPlain.npos) {
      encoded += static_cast<wchar_t>(byte);
    } else if (c == ' ') {
      encoded += L'+';
    } else {
      encoded.append({L'%', kHex[byte >> 4], kHex[byte & 15]});
    }
  }
  return encoded;
}

}  // namespace tagrix
