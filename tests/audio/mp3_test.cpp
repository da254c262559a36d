#include "audio/mp3.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kQuick = L"C:\\m\\a.mp3";
constexpr double kFalse = -1, kFailure = -2;

// The duration of a file with this content, or one of the two above.
double Duration(std::string content) {
  FakeFiles files;
  files.Put(kQuick, std::move(content));
  double milliseconds = kFalse;
  try {
    const bool measured = GetMP3Duration(files, kQuick, milliseconds);
    EXPECT_EQ(measured, milliseconds != kFalse);
  } catch (const Failure&) {
    EXPECT_EQ(milliseconds, kFalse);
    milliseconds = kFailure;
  }
  files.Delete(kQuick);  // throws when it has been left open
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
  EXPECT_EQ(Duration(With(Silence(255), 0, frame128)), kFalse);
  EXPECT_EQ(Duration(With(Silence(256), 0, frame128)), 16);
  EXPECT_EQ(Duration(With(Silence(256), 0, "\xFF\xFA\x14")), 64);  // with CRC, 32 kbit/s, 48000 Hz
  EXPECT_EQ(Duration(With(Silence(256), 0, "\xFF\xFB\xE8")), 6);   // 320 kbit/s, 32000 Hz
  // Whatever comes first is measured: picture data of a tag, a stray pair in another kind of MPEG stream.
  EXPECT_EQ(Duration(With(With(Silence(1000), 0, "\xFF\xF3\x90"), 700, "\xFF\xFF\xFA\x90")), 62);
  EXPECT_EQ(Duration(With(With(Silence(1000), 0, "\xFF\xF3\x90"), 700, "\xFF\xFD\x90\xFF\xE3\xFF")), kFalse);
}

TEST(Mp3Duration, FollowsTheXingHeaderOfTwoChannels) {
  EXPECT_EQ(Duration(XingFile(4000000, std::string_view("\0\0\x13\x75", 4))), 130612);  // 4981 frames, 245.9 kbit/s
  EXPECT_EQ(Duration(XingFile(4000000, std::string_view("\0\0\0\0", 4))), kFailure);
  EXPECT_EQ(Duration(XingFile(4000000, "\xFF\xFF\xFF\xFF")), kFailure);  // below 1 kbit/s
  // The average doesn't need the frame's own bit rate.
  EXPECT_EQ(Duration(With(XingFile(4000000, std::string_view("\0\0\x13\x88", 4)), 2, "\xF0")), 130612);
  // At offset 21, as in files with one channel, it is not looked for.
  EXPECT_EQ(Duration(With(With(Silence(1000000), 0, "\xFF\xFB\x90"), 21, "Xing")), 62500);
}

TEST(Mp3Duration, FailsOnReservedValues) {
  for (const char* header : {"\xFF\xFB\x9C", "\xFF\xFB\xF0", "\xFF\xFB\x01"}) {  // sampling rate 3, bit rates 15 and 0
    EXPECT_EQ(Duration(With(Silence(1000), 100, header)), kFailure);
  }
  EXPECT_EQ(Duration(With(Silence(1000), 998, "\xFF\xFB")), kFailure);  // cut after the pair: the rest reads as zeros
  EXPECT_EQ(Duration(With(Silence(1000), 999, "\xFF")), kFalse);        // cut in the pair
  EXPECT_EQ(Duration(With(Silence(1000), 960, "\xFF\xFB\x90")), 62);    // cut in what would be Xing's header
}

TEST(Mp3Duration, EndsWhereThirtyTwoBitsEnd) {
  for (const auto& [size, expected] : {std::pair(268435455u, 1712506.0), {268435456u, kFailure}}) {
    std::string content = XingFile(100000, std::string_view("\0\1\0\0", 4));  // 1254 kbit/s
    content.resize(size);
    EXPECT_EQ(Duration(std::move(content)), expected);
  }
}

TEST(Mp3Duration, FindsTheFirstFrameWhereverReadsBeginAndEnd) {
  for (const std::size_t border : {4096u, 4095u + 65536, 4095u + 2 * 65535 + 1, 200000u}) {
    for (std::size_t p = border - 50; p < border - 1 || (border < 200000 && p < border + 3); ++p) {
      const std::string silence = With(Silence(200000), 100, "\xFF\xFC\xFF");  // halves of a pair
      ASSERT_EQ(Duration(With(silence, p, std::string("\xFF\xFB\x90").substr(0, 200000 - p))),
                p < 199998 ? 12500 : kFailure);
    }
  }
}

TEST(Mp3Duration, OneReadIsEnoughWhenTheFrameComesFirst) {
  FakeFiles files;
  files.Put(kQuick, With(Silence(5000000), 0, "\xFF\xFB\x90"));
  double milliseconds = 7;
  for (const int call : {1, 2}) {  // open and read
    files.FailCall(call);
    EXPECT_THROW(GetMP3Duration(files, kQuick, milliseconds), Failure);
  }
  files.FailCall(3);
  EXPECT_TRUE(GetMP3Duration(files, kQuick, milliseconds));
}

}  // namespace
}  // namespace tagrix
