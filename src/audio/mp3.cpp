#include "audio/mp3.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/failure.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kShortestFile = 256;
// Most files begin with a frame or with a small tag.
constexpr std::size_t kFirstRead = 4096, kFurtherReads = 65536;
constexpr int kReadsBetweenPauses = 16;  // a mebibyte
constexpr std::size_t kFrameStart = 48;  // as much of a frame as is looked at: up to the end of Xing's count of frames
constexpr std::size_t kXing = 36;        // behind the side information of a frame with two channels
constexpr std::size_t kXingFrames = 44;

using FrameStart = std::array<char, kFrameStart>;

// The codes of the two-bit fields for version and layer; the tables are named by them.
constexpr std::array<std::string_view, 4> kCodes = {"0", "3", "2", "1"};

constexpr int kRatesVersion1[] = {44100, 48000, 32000};
constexpr int kRatesVersion27[] = {22050, 24000, 16000};

constexpr int kBitRates11[] = {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
constexpr int kBitRates12[] = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr int kBitRates13[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr int kBitRates255[] = {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};

// No version code is "27" and no version and layer are "255": these two tables are never taken. An empty span: no
// table.
std::span<const int> SamplingRates(std::string_view version) {
  if (version == "1") return kRatesVersion1;
  if (version == "27") return kRatesVersion27;
  return {};
}

std::span<const int> BitRates(std::string_view versionAndLayer) {
  if (versionAndLayer == "11") return kBitRates11;
  if (versionAndLayer == "12") return kBitRates12;
  if (versionAndLayer == "13") return kBitRates13;
  if (versionAndLayer == "255") return kBitRates255;
  return {};
}

double SamplesFactor(std::string_view layer) { return layer == "1" ? 12 : 144; }

Failure CannotMeasure(const std::wstring& path, Cause cause) { return Failure(Action::Measure, path, cause); }

int Entry(std::span<const int> table, std::size_t index, const std::wstring& path) {
  if (index >= table.size()) throw CannotMeasure(path, Cause::BadHeader);
  return table[index];
}

// The first FF FA or FF FB in `bytes`; the size of `bytes` when there is none.
std::size_t FindSync(std::string_view bytes) {
  for (std::size_t at = 0; (at = bytes.find('\xFF', at)) < bytes.size(); ++at) {
    const std::string_view next = bytes.substr(at + 1, 1);
    if (next == "\xFA" || next == "\xFB") return at;
  }
  return bytes.size();
}

// The start of the first frame; what lies beyond the end of the file reads as zeros.
std::optional<FrameStart> FirstFrame(File& file, std::uint64_t length, const std::function<void()>& pause) {
  std::vector<char> buffer(kFirstRead);
  int reads = 0;
  for (std::uint64_t offset = 0; offset < length;) {
    const std::string_view bytes(buffer.data(), file.Read(offset, buffer.data(), buffer.size()));
    const std::size_t at = FindSync(bytes);
    if (at < bytes.size()) {
      FrameStart frame{};
      const std::size_t here = bytes.copy(frame.data(), kFrameStart, at);
      if (here < kFrameStart) file.Read(offset + at + here, frame.data() + here, kFrameStart - here);
      return frame;
    }
    if (bytes.size() < buffer.size()) break;
    offset += buffer.size() - 1;  // the last byte may be the first of a pair
    buffer.resize(kFurtherReads);
    if (pause && ++reads % kReadsBetweenPauses == 0) pause();
  }
  return {};
}

std::array<std::uint8_t, 4> FourBytes(const FrameStart& frame, std::size_t at) {
  std::array<std::uint8_t, 4> bytes{};
  std::memcpy(bytes.data(), frame.data() + at, bytes.size());
  return bytes;
}

// In kbit/s, whole; nothing when there is no table for the frame's version and layer.
std::optional<double> BitRate(const FrameStart& frame, std::uint64_t length, const std::wstring& path) {
  std::array<std::uint8_t, 4> bytes = FourBytes(frame, 0);
  const std::string header = BytesToBin(bytes);  // 32 digits, since the first byte is FF
  const auto field = [&](std::size_t first, std::size_t digits) {
    return static_cast<std::size_t>(BinToLong(header.substr(first, digits)));
  };
  const std::string version(kCodes[field(11, 2)]), layer(kCodes[field(13, 2)]);
  const std::span<const int> samplingRates = SamplingRates(version);
  if (samplingRates.empty()) return {};
  const int samplingRate = Entry(samplingRates, field(20, 2), path);
  if (std::memcmp(frame.data() + kXing, "Xing", 4) != 0) {
    const std::span<const int> bitRates = BitRates(version + layer);
    if (bitRates.empty()) return {};
    return Entry(bitRates, field(16, 4), path);
  }
  bytes = FourBytes(frame, kXingFrames);
  const auto frames = static_cast<double>(BinToLong(BytesToBin(bytes)));
  if (frames == 0) throw CannotMeasure(path, Cause::NoFrames);
  return std::floor(samplingRate * static_cast<double>(length) / frames / 1000 / SamplesFactor(layer));
}

}  // namespace

bool GetMP3Duration(Files& files, const std::wstring& path, double& milliseconds, const std::function<void()>& pause) {
  const std::unique_ptr<File> file = files.OpenForReading(path);
  const std::uint64_t length = file->Size();
  if (length < kShortestFile) return false;
  const std::optional<FrameStart> frame = FirstFrame(*file, length, pause);
  if (!frame) return false;
  const std::optional<double> bitRate = BitRate(*frame, length, path);
  if (!bitRate) return false;
  // The arithmetic is that of 32-bit integers.
  if (length * 8 > std::numeric_limits<std::int32_t>::max()) throw CannotMeasure(path, Cause::TooLarge);
  if (*bitRate < 1) throw CannotMeasure(path, Cause::NoBitRate);
  milliseconds = std::floor(static_cast<double>(length * 8) / *bitRate);
  return true;
}

std::string BytesToBin(std::array<std::uint8_t, 4>& bytes) {
  std::string digits;
  for (std::uint8_t& byte : bytes) {
    for (int weight = 128; weight > 0; weight /= 2) {
      if (byte >= weight) {
        byte = static_cast<std::uint8_t>(byte - weight);
        digits += '1';
      } else if (!digits.empty()) {
        digits += '0';
      }
    }
  }
  return digits;
}

std::int64_t BinToLong(std::string_view digits) {
  std::int64_t value = 0;
  for (const char digit : digits) value = value * 2 + (digit == '1' ? 1 : 0);
  return value;
}

}  // namespace tagrix
