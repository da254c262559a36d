#include "audio/exact_measure.h"

#include <memory>

#include "audio/byte_window.h"
#include "audio/frame_walk.h"
#include "audio/length_header.h"
#include "audio/tag_edges.h"

namespace tagrix {
namespace {

std::uint64_t CountSound(ByteWindow& bytes, const FoundFrames& first, std::uint64_t end) {
  const std::optional<std::uint64_t> samples = CountAtConstantRate(bytes, first, end);
  return samples ? *samples : WalkFrames(bytes, first, end);
}

// `first`: frames whose first one holds the header.
std::uint64_t CountBehind(ByteWindow& bytes, const LengthHeader& header, const FoundFrames& first, std::uint64_t end) {
  const FrameFormat& format = first.format;
  const std::uint64_t own = format.Length(bytes.View(first.at, kFrameHeader));
  std::uint64_t samples = 0;
  if (header.Agrees(format, end - first.at, own)) {
    samples = std::uint64_t{header.frames} * static_cast<std::uint64_t>(format.Samples());
  } else if (const std::optional<FoundFrames> sound = FindFrames(bytes, first.at + own, end)) {
    samples = CountSound(bytes, *sound, end);
  }
  return header.Audible(samples, format);
}

}  // namespace

std::optional<ExactLength> MeasureExactly(Files& files, const std::wstring& path, const std::function<bool()>& goOn) {
  const std::unique_ptr<File> file = files.OpenForReading(path);
  ByteWindow bytes(*file, goOn);
  const std::uint64_t end = StartOfEndTags(bytes, 0);
  const std::optional<FoundFrames> first = FindFrames(bytes, SkipTags(bytes, 0, end), end);
  if (!first) return {};
  const std::string_view frame = bytes.View(first->at, first->format.LongestFrame());
  const std::optional<LengthHeader> header = ReadLengthHeader(frame, first->format);
  const std::uint64_t samples = header ? CountBehind(bytes, *header, *first, end) : CountSound(bytes, *first, end);
  if (samples == 0 || bytes.Stopped()) return {};
  return ExactLength{samples, first->format.SamplingRate()};
}

}  // namespace tagrix
