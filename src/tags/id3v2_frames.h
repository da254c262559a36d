// What ID3v2 tags of the versions 2.2, 2.3 and 2.4 hold, frame by frame, in one version.
#ifndef TAGRIX_TAGS_ID3V2_FRAMES_H
#define TAGRIX_TAGS_ID3V2_FRAMES_H

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

struct Id3v2Frame {
  std::string id;           // four capitals and digits
  std::uint16_t flags = 0;  // as the version has them
  std::string_view data;    // at least one byte, as it stands in the tag
  bool operator==(const Id3v2Frame&) const = default;
};

// The frames of all tags of a file. Of frames that stand in several tags alike one is left.
struct Id3v2Frames {
  int version = 3;  // 3; 4 when one of the tags was of 2.4
  std::vector<Id3v2Frame> frames;
  // What has no place in the version, by name. It stands among the frames, as the data of a PRIV frame.
  std::vector<std::string> aside;
  std::deque<std::string> bytes;  // in which the data lies
};

// `tags`: whole ones, headers and footers included. Sizes are read as the version writes them and, when that doesn't
// lead through the tag, as the other of 2.3 and 2.4 does: programs have mixed them up. What stands in a tag beyond its
// last frame is kept aside, unless it looks like padding.
Id3v2Frames ReadId3v2Frames(std::vector<std::string> tags);

// A frame's data without what its flags put before it and without unsynchronisation; nothing when it is compressed or
// encrypted.
std::string PlainData(const Id3v2Frame& frame, int version);

}  // namespace tagrix

#endif
