#include "audio/mpeg_frame.h"

#include <span>

namespace tagrix {
namespace {

constexpr std::uint32_t kSync = 0xFFE00000;
constexpr int kMpeg1 = 3, kReservedVersion = 1;  // 0 and 2: MPEG 2.5 and 2
constexpr int kLayer1 = 3, kLayer3 = 1, kReservedLayer = 0;
constexpr int kReservedSamplingRate = 3, kReservedBitRate = 15;
constexpr int kOneChannel = 3;

constexpr int kSamplingRates[] = {44100, 48000, 32000};

// In kbit/s.
using RateRow = std::array<int, kReservedBitRate>;
constexpr RateRow kBitRates1Layer1 = {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
constexpr RateRow kBitRates1Layer2 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr RateRow kBitRates1Layer3 = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr RateRow kBitRates2Layer1 = {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr RateRow kBitRates2 = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

const RateRow& BitRatesOf(bool mpeg1, int layer) {
  if (!mpeg1) return layer == kLayer1 ? kBitRates2Layer1 : kBitRates2;
  if (layer == kLayer1) return kBitRates1Layer1;
  return layer == kLayer3 ? kBitRates1Layer3 : kBitRates1Layer2;
}

}  // namespace

std::optional<FrameFormat> FrameFormat::Of(std::uint32_t header) {
  const auto field = [&](int shift, std::uint32_t mask) { return static_cast<int>(header >> shift & mask); };
  const int version = field(19, 3), layer = field(17, 3), samplingRate = field(10, 3);
  if ((header & kSync) != kSync || version == kReservedVersion || layer == kReservedLayer) return {};
  if (samplingRate == kReservedSamplingRate || field(12, 15) == kReservedBitRate) return {};

  FrameFormat format(header);
  const bool mpeg1 = version == kMpeg1, mono = field(6, 3) == kOneChannel;
  format.samplingRate_ = kSamplingRates[samplingRate] / (mpeg1 ? 1 : version == 0 ? 4 : 2);
  format.samples_ = layer == kLayer1 ? 384 : layer == kLayer3 && !mpeg1 ? 576 : 1152;
  format.slot_ = layer == kLayer1 ? 4 : 1;
  format.sideInformation_ = mpeg1 ? (mono ? 17 : 32) : (mono ? 9 : 17);
  const RateRow& rates = BitRatesOf(mpeg1, layer);
  const auto slot = static_cast<int>(format.slot_), slotsPerKbit = format.samples_ / 8 * 1000 / slot;
  if (format.IsFree()) return format;
  for (std::size_t i = 1; i < rates.size(); ++i) {
    format.SetLength(i, static_cast<std::uint32_t>(slotsPerKbit * rates[i] / format.samplingRate_ * slot));
  }
  format.meanLength_ = 125.0 * format.samples_ * rates[static_cast<std::size_t>(field(12, 15))] / format.samplingRate_;
  return format;
}

FrameFormat FrameFormat::AtOneRate() const {
  FrameFormat format = *this;
  format.lengths_ = {};
  const std::size_t rate = Kind(header_) / kNextRate * kNextRate;
  for (std::size_t kind = rate; kind < rate + kNextRate; ++kind) format.lengths_[kind] = lengths_[kind];
  return format;
}

}  // namespace tagrix
