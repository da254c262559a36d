#include "tags/id3v2_frames.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "tags/id3v2_conversion.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr std::size_t kIdSize = 4, kIdSize2 = 3;
constexpr char kUnsynchronised = '\x80', kExtended = 0x40;                 // flags of a tag
constexpr std::uint16_t kFrameUnsynchronised = 0x02, kFrameLength = 0x01;  // flags of a frame of 2.4

// Three letters of 2.2 filled up to four have been seen, too.
bool IsFrameId(std::string_view id) {
  const std::size_t other = id.find_first_not_of(kLetters);
  return other == id.npos || (other == kIdSize2 && (id[other] == ' ' || id[other] == '\0'));
}

bool IsShort(std::string_view id) { return id.find_first_of(std::string_view(" \0", 2)) == kIdSize2; }

// Unsynchronised data has a 0 behind each FF. `valid`: whether that is so wherever it has to be.
std::string Synchronised(std::string_view data, bool& valid) {
  std::string result;
  result.reserve(data.size());
  valid = true;
  for (std::size_t i = 0; i < data.size(); ++i) {
    result += data[i];
    if (data[i] != '\xFF' || i + 1 == data.size()) continue;
    if (data[i + 1] == '\0')
      ++i;
    else if ((data[i + 1] & 0xE0) == 0xE0)
      valid = false;
  }
  return result;
}

struct Walk {
  std::vector<Id3v2Frame> frames;
  std::string_view rest;  // behind the last frame
  bool Whole() const { return rest.find_first_not_of('\0') == rest.npos; }
};

Walk WalkFrames(std::string_view body, int version, bool syncsafe) {
  const std::size_t idSize = version == 2 ? kIdSize2 : kIdSize, header = version == 2 ? 6 : 10;
  Walk walk{{}, body};
  while (walk.rest.size() >= header) {
    const std::string_view id = walk.rest.substr(0, idSize), digits = walk.rest.substr(idSize, idSize);
    const auto size = syncsafe ? Syncsafe(digits) : BigEndian(digits);
    if (!IsFrameId(id) || !size || *size > walk.rest.size() - header) break;
    const std::uint32_t flags = version == 2 ? 0 : BigEndian(walk.rest.substr(8, 2));
    // Frames have to hold something: some readers end at one that doesn't.
    if (*size > 0)
      walk.frames.push_back({std::string(id), static_cast<std::uint16_t>(flags), walk.rest.substr(header, *size)});
    walk.rest.remove_prefix(header + *size);
  }
  return walk;
}

Walk BestWalk(std::string_view body, int version) {
  Walk walk = WalkFrames(body, version, version == 4);
  if (version == 2 || walk.Whole()) return walk;
  Walk other = WalkFrames(body, version, version != 4);
  return other.Whole() ? other : walk;
}

// Behind the extended header. Some programs set its flag and write none.
std::string_view FramesOf(std::string_view body, int version, char flags) {
  if (version == 2 || (flags & kExtended) == 0 || body.size() < kIdSize || IsFrameId(body.substr(0, kIdSize)))
    return body;
  const std::string_view digits = body.substr(0, kIdSize);
  const std::uint64_t size = version == 3 ? BigEndian(digits) + std::uint64_t{kIdSize} : Syncsafe(digits).value_or(0);
  return body.substr(static_cast<std::size_t>(std::min<std::uint64_t>(size, body.size())));
}

class Collector {
 public:
  explicit Collector(int version) { all_.version = version; }

  void Add(std::string tag) {
    const std::string_view whole = Keep(std::move(tag));
    const auto size = Syncsafe(whole.substr(6, 4)).value_or(0);
    std::string_view body = whole.substr(kId3v2Header, size);
    const int version = static_cast<unsigned char>(whole[3]);
    const char flags = whole[5];
    known_ = all_.frames.size();
    if (version < 2 || version > 4 ||
        (version == 2 && (flags & kExtended) != 0)) {  // 2.2: compressed, nobody knows how
      return KeepAside(version, "", body);
    }
    const bool unsynchronised = (flags & kUnsynchronised) != 0;
    bool valid = true;
    if (unsynchronised && version < 4) body = Keep(Synchronised(body, valid));
    const Walk walk = BestWalk(FramesOf(body, version, flags), version);
    for (const Id3v2Frame& frame : walk.frames) AddFrame(frame, version, unsynchronised);
    if (!walk.rest.empty() && walk.rest[0] != '\0') KeepAside(version, "", walk.rest);
  }

  Id3v2Frames Take() { return std::move(all_); }

 private:
  std::string_view Keep(std::string bytes) { return all_.bytes.emplace_back(std::move(bytes)); }

  void Put(Id3v2Frame frame) {
    const auto end = all_.frames.begin() + static_cast<std::ptrdiff_t>(known_);
    if (std::find(all_.frames.begin(), end, frame) == end) all_.frames.push_back(std::move(frame));
  }

  void KeepAside(int version, std::string_view id, std::string_view data) {
    const std::string name = "ID3v2." + std::to_string(version) + std::string(id.empty() ? "" : " ") + std::string(id);
    all_.aside.push_back(name);
    Put({"PRIV", 0, Keep("Tagrix " + name + '\0' + std::string(data))});
  }

  void AddFrame(const Id3v2Frame& frame, int version, bool unsynchronised) {
    const bool old = version == 2 || IsShort(frame.id);
    if (!old && version == all_.version) return AddAsItIs(frame, unsynchronised);
    const std::string id = frame.id.substr(0, old ? kIdSize2 : kIdSize);
    auto converted = old ? FromVersion2(id, frame.data) : FromVersion3(id, frame.flags, frame.data);
    if (!converted) return KeepAside(version, id, frame.data);
    Put({converted->id, converted->flags, Keep(std::move(converted->data))});
  }

  // In 2.4 each frame tells whether it is unsynchronised; by the tag's flag they all are.
  void AddAsItIs(Id3v2Frame frame, bool unsynchronised) {
    if (unsynchronised && all_.version == 4 && (frame.flags & kFrameUnsynchronised) == 0) {
      bool valid = true;
      std::string data = Synchronised(frame.data, valid);
      if (valid && data.size() < frame.data.size()) frame.data = Keep(std::move(data));
    }
    Put(std::move(frame));
  }

  Id3v2Frames all_;
  std::size_t known_ = 0;  // how many frames come from the tags before
};

}  // namespace

Id3v2Frames ReadId3v2Frames(std::vector<std::string> tags) {
  const bool newest = std::any_of(tags.begin(), tags.end(), [](const std::string& tag) { return tag[3] == 4; });
  Collector collector(newest ? 4 : 3);
  for (std::string& tag : tags) collector.Add(std::move(tag));
  return collector.Take();
}

std::string PlainData(const Id3v2Frame& frame, int version) {
  const bool newer = version == 4;
  if ((frame.flags & (newer ? 0x0C : 0xC0)) != 0) return {};
  std::size_t before = (frame.flags & (newer ? 0x40 : 0x20)) != 0 ? 1 : 0;
  if (newer && (frame.flags & kFrameLength) != 0) before += 4;
  const std::string_view data = frame.data.substr(std::min(before, frame.data.size()));
  bool valid = true;
  return newer && (frame.flags & kFrameUnsynchronised) != 0 ? Synchronised(data, valid) : std::string(data);
}

}  // namespace tagrix
