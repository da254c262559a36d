// The header of an MPEG audio frame, and what the frames of one stream have in common.
#ifndef TAGRIX_AUDIO_MPEG_FRAME_H
#define TAGRIX_AUDIO_MPEG_FRAME_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tagrix {

inline constexpr std::size_t kFrameHeader = 4;  // bytes

// An unsigned number, most significant byte first; what is missing at the end reads as zeros.
constexpr std::uint32_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count = 4) {
  if (count == 4 && at + 4 <= bytes.size()) {  // one load, since this is asked of every frame
    const char* start = bytes.data() + at;
    const auto byte = [&](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(start[i])}; };
    return byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
  }
  std::uint32_t value = 0;
  for (; count > 0; --count, ++at)
    value = value << 8 | (at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U);
  return value;
}

// Frames whose headers agree in version, layer and sampling rate; the bit rate may change from frame to frame.
// ISO/IEC 11172-3 and 13818-3 (MPEG 1 and 2, layers I to III), and MPEG 2.5, which goes on below them.
class FrameFormat {
 public:
  // Nothing when these four bytes, as a number, are no header: no sync word, or a reserved value.
  static std::optional<FrameFormat> Of(std::uint32_t header);

  // Of the frame at the start of these bytes, with its header; bytes. 0: none of this stream begins there.
  std::uint32_t Length(std::string_view frame) const {
    if (frame.size() < kFrameHeader || ((BigEndian(frame, 0) ^ header_) & kAgreeing) != 0) return 0;
    return lengths_[static_cast<unsigned char>(frame[2])];
  }

  // The bit rate is not told, only constant: the length of the frames, without padding, is to be found out.
  bool IsFree() const { return (header_ >> 12 & 15) == 0; }
  void SetFreeLength(std::uint32_t length) { SetLength(0, length); }
  // The same without frames of other bit rates than the header's that it was made of.
  FrameFormat AtOneRate() const;
  // What frames of that bit rate have on average, with padding; bytes. Not for free format.
  double MeanLength() const { return meanLength_; }
  std::uint32_t Slot() const { return slot_; }  // what padding adds
  // Of the slowest and the fastest frames that the stream can have, the latter padded; bytes.
  std::uint32_t ShortestFrame() const { return lengths_[Kind(header_ & kAgreeing) | (IsFree() ? 0 : kNextRate)]; }
  std::uint32_t LongestFrame() const { return *std::max_element(lengths_.begin(), lengths_.end()); }

  int Samples() const { return samples_; }  // a frame and channel
  int SamplingRate() const { return samplingRate_; }
  // Between the header, with its checksum if it has one, and the sound of a frame of layer III; bytes.
  std::size_t SideInformation() const { return sideInformation_; }
  bool HasChecksum() const { return (header_ >> 16 & 1) == 0; }

 private:
  static constexpr std::uint32_t kAgreeing = 0xFFFE0C00;  // sync word, version, layer, sampling rate
  // Bit rate, sampling rate, padding and a private bit share a byte of the header: one look-up from frame to frame.
  static constexpr std::size_t kKinds = 256, kNextRate = 16, kPadded = 2;
  static constexpr std::size_t Kind(std::uint32_t header) { return header >> 8 & (kKinds - 1); }

  explicit FrameFormat(std::uint32_t header) : header_(header) {}
  void SetLength(std::size_t bitRate, std::uint32_t unpadded) {
    const std::size_t kind = Kind(header_ & kAgreeing) + bitRate * kNextRate;
    for (const std::size_t bit : {0U, 1U}) {
      lengths_[kind + bit] = unpadded;
      lengths_[kind + bit + kPadded] = unpadded + slot_;
    }
  }

  std::uint32_t header_, slot_ = 1;
  std::array<std::uint32_t, kKinds> lengths_{};  // 0: there is no such frame
  double meanLength_ = 0;
  int samples_ = 0, samplingRate_ = 0;
  std::size_t sideInformation_ = 0;
};

}  // namespace tagrix

#endif
