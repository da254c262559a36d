#include "audio/length_header.h"

#include <algorithm>

namespace tagrix {
namespace {

constexpr std::size_t kXingFields = 8, kChecksum = 2;
constexpr std::uint32_t kHasFrames = 1, kHasBytes = 2, kHasSeekTable = 4, kHasQuality = 8;
constexpr std::size_t kSeekTable = 100, kLame = 24, kLameDelays = 21;  // the encoder's name comes first
constexpr std::size_t kVbri = kFrameHeader + 32, kVbriBytes = kVbri + 10, kVbriFrames = kVbri + 14;
constexpr std::uint64_t kDecoderDelay = 529;  // of layer III

LengthHeader ReadXing(std::string_view header) {
  LengthHeader result;
  const std::uint32_t flags = BigEndian(header, 4);
  std::size_t at = kXingFields;
  const auto field = [&](std::uint32_t flag, std::size_t length) {
    if ((flags & flag) == 0) return std::uint32_t{0};
    at += length;
    return BigEndian(header, at - length);
  };
  result.frames = field(kHasFrames, 4);
  result.bytes = field(kHasBytes, 4);
  field(kHasSeekTable, kSeekTable);
  field(kHasQuality, 4);
  if (header.size() >= at + kLame && header[at] != '\0') {
    const std::uint32_t delays = BigEndian(header, at + kLameDelays, 3);
    result.added = {delays >> 12, delays & 0xFFF};
  }
  return result;
}

}  // namespace

std::optional<LengthHeader> ReadLengthHeader(std::string_view frame, const FrameFormat& format) {
  const std::size_t side = kFrameHeader + format.SideInformation();
  for (const std::size_t at : {side, side + (format.HasChecksum() ? kChecksum : 0)}) {
    const std::string_view header = frame.substr(std::min(at, frame.size()));
    if (header.starts_with("Xing") || header.starts_with("Info")) return ReadXing(header);
  }
  if (!frame.substr(std::min(kVbri, frame.size())).starts_with("VBRI")) return {};
  return LengthHeader{BigEndian(frame, kVbriFrames), BigEndian(frame, kVbriBytes), {}};
}

bool LengthHeader::Agrees(const FrameFormat& format, std::uint64_t sound, std::uint64_t own) const {
  if (frames == 0 || bytes == 0) return false;
  const std::uint64_t mean = (sound - own) / frames;
  if (mean < format.ShortestFrame() || mean > format.LongestFrame()) return false;
  return std::max<std::uint64_t>(bytes, sound) - std::min<std::uint64_t>(bytes, sound) < mean;
}

std::uint64_t LengthHeader::Audible(std::uint64_t samples, const FrameFormat& format) const {
  if (!added) return samples;
  // The end of the sound lies as much later as the decoder lags; a cut has taken some of what was added behind it.
  const std::uint64_t told = std::uint64_t{frames} * static_cast<std::uint64_t>(format.Samples());
  const std::uint64_t cut = told - std::min(told, samples);
  const std::uint64_t behind = added->behind - std::min<std::uint64_t>(added->behind, kDecoderDelay + cut);
  return samples - std::min(samples, behind + added->before + kDecoderDelay);
}

}  // namespace tagrix
