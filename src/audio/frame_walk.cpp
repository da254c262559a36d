#include "audio/frame_walk.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "audio/tag_edges.h"

namespace tagrix {
namespace {

constexpr int kAgreeingHeaders = 3;
constexpr std::size_t kLongestFreeFrame = 8192, kShortestFreeFrame = 32;
constexpr std::size_t kSearched = 16384;   // so that the headers behind a candidate are at hand, too
constexpr std::size_t kSampledFrames = 4;  // at each place, where the bit rate may be constant
constexpr double kWorthSampling = 100;     // frames

std::uint32_t HeaderAt(ByteWindow& bytes, std::uint64_t at) { return BigEndian(bytes.View(at, kFrameHeader), 0); }

// Whether the frames at `at` go on as the format says: three of them, or up to the end.
bool GoOn(ByteWindow& bytes, std::uint64_t at, const FrameFormat& format, std::uint64_t end) {
  for (int agreeing = 0; agreeing < kAgreeingHeaders; ++agreeing) {
    if (at + kFrameHeader > end) return agreeing > 1 || (agreeing == 1 && at == end);
    const std::uint32_t length = format.Length(bytes.View(at, kFrameHeader));
    if (length == 0) return false;
    at += length;
  }
  return true;
}

// How long the frames of free format are: so that headers stand where they lead.
std::optional<FrameFormat> WithFreeLength(ByteWindow& bytes, std::uint64_t at, FrameFormat format, std::uint64_t end) {
  const std::uint32_t first = HeaderAt(bytes, at);
  for (std::size_t distance = kShortestFreeFrame; distance <= kLongestFreeFrame; ++distance) {
    const std::string_view ahead = bytes.View(at, kLongestFreeFrame + kFrameHeader);
    distance = std::min(ahead.find('\xFF', distance), ahead.size());
    if (distance > kLongestFreeFrame || at + distance + kFrameHeader > end) break;
    const std::uint32_t padding = (first >> 9 & 1) * format.Slot();
    format.SetFreeLength(static_cast<std::uint32_t>(distance) - padding);
    if (format.Length(ahead.substr(distance)) != 0 && GoOn(bytes, at, format, end)) return format;
  }
  return {};
}

std::optional<FrameFormat> FormatAt(ByteWindow& bytes, std::uint64_t at, std::uint64_t end) {
  std::optional<FrameFormat> format = FrameFormat::Of(HeaderAt(bytes, at));
  if (format && format->IsFree()) return WithFreeLength(bytes, at, *format, end);
  if (format && !GoOn(bytes, at, *format, end)) format.reset();
  return format;
}

// Counts complete frames from `at` on, which is left where they end.
std::uint64_t CountRun(ByteWindow& bytes, std::uint64_t& at, const FrameFormat& format, std::uint64_t end) {
  std::uint64_t frames = 0;
  while (at + kFrameHeader <= end) {
    // Those at hand in one go: there are thousands in a file.
    const std::string_view ahead = bytes.Ahead(at, kFrameHeader).substr(0, end - at);
    std::size_t next = 0;
    while (next + kFrameHeader <= ahead.size()) {
      const std::uint32_t length = format.Length(ahead.substr(next));
      if (length == 0 || at + next + length > end) {
        at += next;
        return frames;
      }
      next += length;
      ++frames;
    }
    if (next == 0) break;
    at += next;
  }
  return frames;
}

// Moves `at` by up to two slots to where a frame begins, since padding comes sooner or later.
bool FindNear(ByteWindow& bytes, std::uint64_t& at, const FrameFormat& format) {
  for (const std::uint64_t last = at + std::uint64_t{2} * format.Slot(); at <= last; ++at) {
    if (format.Length(bytes.View(at, kFrameHeader)) != 0) return true;
  }
  return false;
}

}  // namespace

std::optional<FoundFrames> FindFrames(ByteWindow& bytes, std::uint64_t at, std::uint64_t end) {
  // Mostly they are just here; then what lies behind needn't be read.
  if (const std::optional<FrameFormat> format = FormatAt(bytes, at, end)) return FoundFrames{at, *format};
  while (at + kFrameHeader <= end) {
    const std::string_view ahead = bytes.Ahead(at, kSearched);
    if (ahead.empty()) break;
    const std::size_t sync = std::min(ahead.find('\xFF'), ahead.size());
    at += sync;
    if (sync == ahead.size()) continue;
    if (const std::optional<FrameFormat> format = FormatAt(bytes, at, end)) return FoundFrames{at, *format};
    ++at;
  }
  return {};
}

std::uint64_t WalkFrames(ByteWindow& bytes, const FoundFrames& first, std::uint64_t end) {
  double samples = 0;
  std::optional<FoundFrames> here = first;
  while (here) {
    std::uint64_t at = here->at;
    const std::uint64_t frames = CountRun(bytes, at, here->format, end);
    const double inRate = static_cast<double>(first.format.SamplingRate()) / here->format.SamplingRate();
    samples += static_cast<double>(frames) * here->format.Samples() * inRate;
    here = FindFrames(bytes, SkipTags(bytes, at, end), end);
  }
  return static_cast<std::uint64_t>(std::llround(samples));
}

std::optional<std::uint64_t> CountAtConstantRate(ByteWindow& bytes, const FoundFrames& first, std::uint64_t end) {
  if (first.format.IsFree()) return {};
  const FrameFormat format = first.format.AtOneRate();
  const double length = format.MeanLength(), all = std::floor(static_cast<double>(end - first.at) / length);
  if (all < kWorthSampling) return {};
  std::uint64_t frames = 0, at = 0;
  for (const double part : {0.5, 1.0}) {
    frames = static_cast<std::uint64_t>(all * part) - kSampledFrames;
    at = first.at + static_cast<std::uint64_t>(static_cast<double>(frames) * length) - format.Slot();
    const std::size_t sample = (kSampledFrames + 1) * format.LongestFrame();
    bytes.View(at, sample);  // in one read
    if (!FindNear(bytes, at, format)) return {};
    const std::uint64_t here = CountRun(bytes, at, format, part == 1 ? end : at + sample);
    if (here < kSampledFrames) return {};
    frames += here;
  }
  if (end - at >= format.LongestFrame()) return {};
  return frames * static_cast<std::uint64_t>(format.Samples());
}

}  // namespace tagrix
