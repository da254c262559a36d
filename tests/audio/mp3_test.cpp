#include "audio/mp3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>

#include "core/failure.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m\\a.mp3";
constexpr double kFalse = -1, kFailure = -2;

// The duration of a file with this content, or one of the two above.
double Duration(std::string content) {
  FakeFiles files;
  files.Put(kPath, std::move(content));
  double milliseconds = kFalse;
  try {
    const bool measured = GetMP3Duration(files, kPath, milliseconds);
    EXPECT_EQ(measured, milliseconds != kFalse);
  } catch (const Failure&) {
    EXPECT_EQ(milliseconds, kFalse);
    milliseconds = kFailure;
  }
  files.Delete(kPath);  // throws when it has been left open
  return milliseconds;
}

std::string With(std::string content, std::size_t at, std::string_view bytes) {
  return content.replace(at, bytes.size(), bytes);
}

std::string Silence(std::size_t size) { return std::string(size, '\0'); }

// A Xing header that counts `frames`, in a frame of 44100 Hz.
std::string XingFile(std::size_t size, std::string_view frames) {
  return With(With(With(Silence(size), 0, "\xFF\xFB\x90"), 36, "Xing"), 44, frames);
}

TEST(Mp3Duration, FollowsTheFirstFrame) {
  const std::string frame128 = "\xFF\xFB\x90";
  EXPECT_EQ(Duration(With(Silence(5000000), 0, frame128)), 312500);
  EXPECT_EQ(Duration(With(Silence(1000000), 0, frame128)), 62500);
  EXPECT_EQ(Duration(With(Silence(1000001), 0, frame128)), 62500);
  EXPECT_EQ(Duration(With(Silence(255), 0, frame128)), kFalse);
  EXPECT_EQ(Duration(With(Silence(256), 0, frame128)), 16);
  EXPECT_EQ(Duration(With(Silence(256), 0, "\xFF\xFA\x14")), 64);  // with CRC, 32 kbit/s, 48000 Hz
  EXPECT_EQ(Duration(With(Silence(256), 0, "\xFF\xFB\xE8")), 6);   // 320 kbit/s, 32000 Hz
  // Whatever comes first is measured: picture data of a tag, a stray pair in another kind of MPEG stream.
  EXPECT_EQ(Duration(With(With(Silence(100000), 50, "ID3..\xFF\xFB\x10"), 90000, frame128)), 25000);
  EXPECT_EQ(Duration(With(With(Silence(1000), 0, "\xFF\xF3\x90"), 700, "\xFF\xFF\xFA\x90")), 62);
  EXPECT_EQ(Duration(With(With(Silence(1000), 0, "\xFF\xF3\x90"), 700, "\xFF\xFD\x90\xFF\xE3\xFF")), kFalse);
}

TEST(Mp3Duration, FollowsTheXingHeaderOfTwoChannels) {
  EXPECT_EQ(Duration(XingFile(4000000, std::string_view("\0\0\x13\x88", 4))), 130612);  // 5000 frames, 245 kbit/s
  EXPECT_EQ(Duration(XingFile(4000000, std::string_view("\0\0\x13\x75", 4))), 130612);  // 4981 frames, 245.9 kbit/s
  EXPECT_EQ(Duration(XingFile(4000000, std::string_view("\0\0\0\0", 4))), kFailure);
  EXPECT_EQ(Duration(XingFile(4000000, "\xFF\xFF\xFF\xFF")), kFailure);  // below 1 kbit/s
  // The average doesn't need the frame's own bit rate.
  EXPECT_EQ(Duration(With(XingFile(4000000, std::string_view("\0\0\x13\x88", 4)), 2, "\xF0")), 130612);
  // At offset 21, as in files with one channel, it is not looked for.
  EXPECT_EQ(Duration(With(With(Silence(1000000), 0, "\xFF\xFB\x90"), 21, "Xing")), 62500);
}

// Files made by an encoder: a quarter of a second or less, 64 kbit/s, about 60 kbit/s, 32 kbit/s with a leading tag.
TEST(Mp3Duration, MeasuresRealFiles) {
  const auto duration = [](const char* name) {
    std::ifstream file(std::string(TAGRIX_MP3_FILES "/") + name, std::ios::binary);
    return Duration(std::string(std::istreambuf_iterator<char>(file), {}));
  };
  EXPECT_EQ(duration("cbr.mp3"), 313);
  EXPECT_EQ(duration("vbr.mp3"), 288);
  EXPECT_EQ(duration("tagged.mp3"), 247);
}

TEST(Mp3Duration, FailsOnReservedValues) {
  for (const char* header : {"\xFF\xFB\x9C", "\xFF\xFB\xF0", "\xFF\xFB\x01"}) {  // sampling rate 3, bit rates 15 and 0
    EXPECT_EQ(Duration(With(Silence(1000), 100, header)), kFailure);
  }
  EXPECT_EQ(Duration(With(Silence(1000), 998, "\xFF\xFB")), kFailure);  // cut after the pair: the rest reads as zeros
  EXPECT_EQ(Duration(With(Silence(1000), 999, "\xFF")), kFalse);        // cut in the pair
  EXPECT_EQ(Duration(With(Silence(1000), 960, "\xFF\xFB\x90")), 62);    // cut in what would be Xing's header
  FakeFiles files;
  double milliseconds = 7;
  EXPECT_THROW(GetMP3Duration(files, kPath, milliseconds), Failure);
  EXPECT_EQ(milliseconds, 7);
}

// A file of any size that begins with this and is zero behind.
class LargeFiles : public FakeFiles {
 public:
  LargeFiles(std::string start, std::uint64_t size) : start_(std::move(start)), size_(size) {}
  std::unique_ptr<File> OpenForReading(const std::wstring&) override {
    return std::make_unique<LargeFile>(start_, size_);
  }

 private:
  struct LargeFile : File {
    LargeFile(std::string text, std::uint64_t length) : start(std::move(text)), size(length) {}
    std::uint64_t Size() override { return size; }
    std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
      std::fill_n(buffer, count, '\0');
      if (offset < start.size()) start.copy(buffer, count, static_cast<std::size_t>(offset));
      return static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset));
    }
    void Write(std::uint64_t, std::string_view) override { throw Failure(L"Write"); }
    void Flush() override {}

    std::string start;
    std::uint64_t size;
  };

  std::string start_;
  std::uint64_t size_;
};

TEST(Mp3Duration, EndsWhereThirtyTwoBitsEnd) {
  const std::string start = XingFile(256, std::string_view("\0\1\0\0", 4));  // 1254 kbit/s
  double milliseconds = 0;
  LargeFiles last(start, 268435455), beyond(start, 268435456), farBeyond(start, 1ull << 40);
  EXPECT_TRUE(GetMP3Duration(last, kPath, milliseconds));
  EXPECT_EQ(milliseconds, 1712506);
  EXPECT_THROW(GetMP3Duration(beyond, kPath, milliseconds), Failure);
  EXPECT_THROW(GetMP3Duration(farBeyond, kPath, milliseconds), Failure);
  LargeFiles silent("", 1ull << 28);
  EXPECT_FALSE(GetMP3Duration(silent, kPath, milliseconds));
}

// What a scan byte by byte finds.
double ReferenceDuration(const std::string& content) {
  const auto at = [&](std::size_t p) { return p < content.size() ? static_cast<std::uint8_t>(content[p]) : 0; };
  constexpr int kRates[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
  for (std::size_t p = 0; p < content.size(); ++p) {
    if (at(p) != 0xFF || (at(p + 1) != 0xFA && at(p + 1) != 0xFB)) continue;
    const int rate = kRates[at(p + 2) >> 4];
    if (rate == 0 || (at(p + 2) >> 2 & 3) == 3) return kFailure;
    return std::floor(static_cast<double>(content.size() * 8) / rate);
  }
  return kFalse;
}

TEST(Mp3Duration, IsThatOfAByteByByteScan) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    std::string content = Silence(256 + random() % 200000);
    // Pairs, halves of pairs and rates, most of them where one read ends and the next begins.
    for (int i = 0; i < 12; ++i) {
      const std::size_t borders[] = {4096, 4095 + 65536, 4095 + 2 * 65535, random() % content.size(), content.size()};
      const std::size_t p = borders[random() % 5] - 4 + random() % 8;
      constexpr char kBytes[] = {'\xFF', '\xFF', '\xFA', '\xFB', '\x90', '\x54', '\x20', '\xFC'};
      for (std::size_t q = p; q < std::min(p + 3, content.size()); ++q) content[q] = kBytes[random() % 8];
    }
    ASSERT_EQ(Duration(content), ReferenceDuration(content)) << "round " << round;
  }
}

TEST(Mp3Duration, TakesOneReadWhenTheFrameComesFirst) {
  FakeFiles files;
  files.Put(kPath, With(Silence(5000000), 0, "\xFF\xFB\x90"));
  int calls = 0;
  files.beforeCall = [&](const std::wstring&) { ++calls; };
  double milliseconds = 0;
  EXPECT_TRUE(GetMP3Duration(files, kPath, milliseconds));
  EXPECT_EQ(calls, 2);  // open and read
  files.FailCall(2);
  EXPECT_THROW(GetMP3Duration(files, kPath, milliseconds), Failure);
  files.Delete(kPath);  // throws when it has been left open
}

TEST(Bits, DropLeadingZerosAndUseUpTheBytes) {
  std::array<std::uint8_t, 4> bytes{0, 0, 0x13, 0x88};
  EXPECT_EQ(BytesToBin(bytes), "1001110001000");
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{}));
  EXPECT_EQ(BytesToBin(bytes), "");
  bytes = {0xFF, 0xFB, 0x90, 0};
  EXPECT_EQ(BytesToBin(bytes), "11111111111110111001000000000000");
  EXPECT_EQ(BinToLong("1001110001000"), 5000);
  EXPECT_EQ(BinToLong(""), 0);
  EXPECT_EQ(BinToLong("1x 1"), 9);
  EXPECT_EQ(BinToLong(std::string(32, '1')), 4294967295);
}

}  // namespace
}  // namespace tagrix
