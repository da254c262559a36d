// Where the tags of a file stand that are written anew.
#ifndef TAGRIX_TAGS_TAG_LAYOUT_H
#define TAGRIX_TAGS_TAG_LAYOUT_H

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tagrix {

struct TagSpan {
  std::uint64_t begin = 0, end = 0;  // offsets in the file
};

struct TagLayout {
  std::uint64_t size = 0;         // of the file
  std::vector<TagSpan> leading;   // ID3v2 tags from the start of the file on, one behind the other
  bool cut = false;               // another one goes on behind the end of the file
  std::vector<TagSpan> appended;  // ID3v2.4 tags with a footer behind the sound, in their order
  bool id3v1 = false;             // at the very end

  std::uint64_t Sound() const { return leading.empty() ? 0 : leading.back().end; }
  std::uint64_t End() const { return size - (id3v1 ? kId3v1 : 0); }

  static constexpr std::uint64_t kId3v1 = 128;  // bytes
};

// Looks behind APE tags, Lyrics3 and ID3v1's extension for appended tags. Throws Failure.
TagLayout LocateTags(File& file);

// The bytes of spans of a file, each whole. Throws Failure.
std::vector<std::string> ReadSpans(File& file, const std::vector<TagSpan>& spans);

}  // namespace tagrix

#endif
