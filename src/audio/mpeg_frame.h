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
  const auto byte = [&](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
  if (count == 4 && at + 4 <= bytes.size()) {  // in one step, since every frame is asked
    return byte(at) << 24 | byte(at + 1) << 16 | byte(at + 2) << 8 | byte(at + 3);
  }
  std::uint32_t value = 0;
  for (std::size_t i = at; i < at + count; ++i) value = value << 8 | (i < bytes.size() ? byte(i) : 0U);
  return value;
}

// Frames whose headers agree in version, layer and sampling rate; the bit rate may change from frame to frame.
// ISO/IEC 11172-3 and 13818-3 (MPEG 1 and 2, layers I to III), and MPEG 2.5, which goes on below them.
class FrameFormat {
 public:
  // Nothing when these four bytes, as a number, are no header: no sync word, or a reserved value.
  static std::optional<FrameFormat> Of(std::uint32_t header);

  // Of the frame that begins with this header, which it counts; bytes. 0: it is none of this stream.
  std::uint32_t Length(std::uint32_t header) const {
    return ((header ^ header_) & kAgreeing) == 0 ? lengths_[Kind(header)] : 0;
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
  // Bit rate, sampling rate and padding, side by side in the header: one look-up from frame to frame.
  static constexpr std::size_t kKinds = 128, kNextRate = 8;
  static constexpr std::size_t Kind(std::uint32_t header) { return header >> 9 & (kKinds - 1); }

  explicit FrameFormat(std::uint32_t header) : header_(header) {}
  void SetLength(std::size_t bitRate, std::uint32_t unpadded) {
    const std::size_t kind = Kind(header_ & kAgreeing) + bitRate * kNextRate;
    lengths_[kind] = unpadded;
    lengths_[kind + 1] = unpadded + slot_;
  }

  std::uint32_t header_, slot_ = 1;
  std::array<std::uint32_t, kKinds> lengths_{};  // 0: there is no such frame
  double meanLength_ = 0;
  int samples_ = 0, samplingRate_ = 0;
  std::size_t sideInformation_ = 0;
};

}  // namespace tagrix

#endif
