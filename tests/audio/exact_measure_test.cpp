#include "audio/exact_measure.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kMeasured = L"C:\\m\\a.mp3";

std::string operator*(const std::string& text, int times) {
  std::string result;
  while (times-- > 0) result += text;
  return result;
}
std::string Zeros(std::size_t count) { return std::string(count, '\0'); }
std::string Number(std::uint64_t value, std::size_t bytes = 4) {
  std::string result;
  while (bytes-- > 0) result += static_cast<char>(value >> 8 * bytes & 255);
  return result;
}
// A silent frame.
std::string FrameBytes(std::uint32_t header, std::size_t length) { return Number(header) + Zeros(length - 4); }
const std::string k128 = FrameBytes(0xFFFB9400, 384), k160 = FrameBytes(0xFFFBA400, 480);  // layer III, 48000 Hz

// Tags that hold frames, of 4320 bytes.
const std::string kTrap = k160 * 9, kId3v2 = "ID3" + Number(0x03000000002160, 7) + kTrap;
const std::string kFooted = "ID3" + Number(0x04001000002160, 7) + kTrap + "3DI" + Number(0x04001000002160, 7);
const std::string kApe1 = kTrap + "APETAGEX" + Number(0xE803000000110000, 8) + Zeros(16);
std::string ApeEnd(std::uint64_t flags) {
  return "APETAGEX" + Number(0xD007000000110000, 8) + Number(flags, 8) + Zeros(8);
}
const std::string kApe2 = ApeEnd(0xA0) + kTrap + ApeEnd(0x80);
const std::string kLyrics1 = "LYRICSBEGIN" + kTrap + "LYRICSEND";
const std::string kLyrics2 = "LYRICSBEGIN" + kTrap + "004331LYRICS200", kId3v1 = "TAG" + Zeros(125);

// The samples of a file with this content; 0 when it can't be measured.
std::uint64_t Samples(const std::string& content, int mostCalls = 100000) {
  FakeFiles files;
  files.Put(kMeasured, content);
  files.beforeCall = [&](const std::wstring&) { EXPECT_GE(--mostCalls, 0); };
  const std::optional<ExactLength> length = MeasureExactly(files, kMeasured);
  return length ? length->samples : 0;
}

TEST(MeasureExactly, KnowsFramesOfAllKinds) {
  const struct {
    std::uint32_t header;
    std::size_t length;
    std::uint64_t samples;
  } kinds[] = {
      {0xFFFF18C0, 48, 384},     // MPEG 1, layer I, 32 kbit/s, 32000 Hz
      {0xFFF7E200, 560, 384},    // MPEG 2, 256 kbit/s, 22050 Hz, padded by a slot of four bytes
      {0xFFFDE800, 1728, 1152},  // layer II, 384 kbit/s, 32000 Hz
      {0xFFF51800, 72, 1152},    // MPEG 2, 8 kbit/s, 16000 Hz
      {0xFFFAE200, 1045, 1152},  // layer III, 320 kbit/s, 44100 Hz, with checksum, padded
      {0xFFE318C0, 72, 576},     // MPEG 2.5, 8 kbit/s, 8000 Hz
      {0xFFFB0400, 1000, 1152},  // free format, 48000 Hz
      {0xFFEB9000, 417, 0},      // reserved: version, layer, sampling rate, bit rate
      {0xFFF99000, 417, 0},     {0xFFFB9C00, 417, 0}, {0xFFFBF000, 417, 0},
  };
  for (const auto& kind : kinds) {
    const std::string frames = FrameBytes(kind.header, kind.length) * 7;
    EXPECT_EQ(Samples(frames), 7 * kind.samples) << std::hex << kind.header;
    EXPECT_EQ(Samples(frames.substr(0, frames.size() - 1)), 6 * kind.samples) << std::hex << kind.header;
  }
}

TEST(MeasureExactly, CountsWhatIsThereBesideTagsAndGarbage) {
  const std::string five = k128 * 5, half = k128 * 300;
  const std::pair<std::string, std::uint64_t> files[] = {
      {kId3v2 + five, 5},
      {kId3v2 + kFooted + kApe2 + five + kFooted, 5},
      {Zeros(5000) + "\xFF\xFB\x94\xFF" + five + Zeros(5000), 5},
      {kId3v2.substr(0, 8) + "\x7F\x7F" + five, 5},  // longer than the file
      {five + kApe1 + kId3v1, 5},
      {five + kApe2 + kLyrics2 + "TAG+" + Zeros(223) + kId3v1, 5},
      {five + kLyrics1 + kId3v1, 5},
      {(k128 + k160) * 300, 600},
      {half + kId3v1 + kId3v2 + half, 600},
      {half + k160 + half, 601},      // not where a constant rate would put them
      {half + k160 * 4 + half, 604},  // four as long as five
      {k128 * 10 + std::string(700, '\xFF') + k160 * 10, 20},
      {k128 * 10 + FrameBytes(0xFFF39400, 240) * 10, 20},  // of half the rate: by the time they take
      {k128, 1},
      {"", 0},
      {k128.substr(0, 383), 0},
      {kId3v2 + kId3v1, 0},
      {k128 + Zeros(500), 0},
  };
  for (const auto& [content, frames] : files) EXPECT_EQ(Samples(content), frames * 1152) << content.size();
  EXPECT_EQ(Samples(kId3v2 + k128 * 10000 + kId3v1, 8), 10000 * 1152U);  // without reading it all
}

// A frame that holds a header.
std::string Xing(std::uint32_t frames, std::size_t bytes, const std::string& encoder = {}, std::size_t at = 36) {
  const std::string header = "Xing" + Number(3) + Number(frames) + Number(bytes) + encoder;
  return std::string(k128).replace(at, header.size(), header);
}

TEST(MeasureExactly, BelievesAHeaderThatAgreesWithTheFile) {
  const std::string sound = k160 * 10 + k128 * 10, lame = "LAME3.100" + Zeros(12) + Number(576 << 12 | 1000, 3);
  const std::size_t size = k128.size() + sound.size();
  const std::string vbri = std::string(k128).replace(36, 18, "VBRI" + Zeros(6) + Number(size) + Number(19));
  const std::pair<std::string, std::uint64_t> files[] = {
      {Xing(19, size) + sound, 19 * 1152},
      {Xing(19, size - 384) + sound + kId3v1, 19 * 1152},                          // bytes without its own frame
      {Xing(19, size + 700) + sound, 20 * 1152},                                   // another length
      {Xing(2, size) + sound, 20 * 1152},                                          // frames of more than 320 kbit/s
      {Xing(20, size, lame) + sound, 20 * 1152 - 1576},                            // what the encoder added
      {Xing(20, size, lame) + k160 * 10, 10 * 1152 - 576 - 529},                   // cut: what was added behind is gone
      {Xing(20, size, lame) + sound + sound, 40 * 1152 - 1576},                    // joined
      {Xing(20, size, "LAME" + Zeros(17) + "\xFF\xFF\xFF") + k128, 0},             // more added than there is
      {Number(0xFFFB94C0) + Xing(19, size, {}, 21).substr(4) + sound, 19 * 1152},  // one channel
      {Number(0xFFFA9400) + Xing(19, size, {}, 38).substr(4) + sound, 19 * 1152},  // behind a checksum
      {vbri + sound, 19 * 1152},
      {Xing(5, 1000), 0},
  };
  for (const auto& [content, samples] : files) EXPECT_EQ(Samples(content), samples) << content.size();
}

TEST(MeasureExactly, EndsWhenItIsToldToAndTellsWhatCannotBeRead) {
  FakeFiles files;
  files.Put(kMeasured, k128 * 3 + Zeros(5000000));
  int asked = 0;
  EXPECT_FALSE(MeasureExactly(files, kMeasured, [&] { return ++asked < 2; }));
  EXPECT_EQ(asked, 2);
  for (const int call : {1, 2}) {
    files.FailCall(call);
    EXPECT_THROW(MeasureExactly(files, kMeasured), Failure);
  }
}

}  // namespace
}  // namespace tagrix
