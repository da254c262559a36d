// Where the tags before, behind and between the sound of a file begin and end.
#ifndef TAGRIX_AUDIO_TAG_EDGES_H
#define TAGRIX_AUDIO_TAG_EDGES_H

#include <cstdint>

#include "audio/byte_window.h"

namespace tagrix {

// Where the tags that begin at `at`, one behind the other, end: ID3v2 (id3.org, 2.2 to 2.4), APE with a header, ID3v1.
// `at` itself when there is none, or when it says that it goes on behind `end`.
std::uint64_t SkipTags(ByteWindow& bytes, std::uint64_t at, std::uint64_t end);

// Where the tags at the end of the file begin, however many there are, but not before `begin`: ID3v1 with or without
// its extension, APE 1 and 2, Lyrics3 1.00 and 2.00, ID3v2.4 with a footer.
std::uint64_t StartOfEndTags(ByteWindow& bytes, std::uint64_t begin);

}  // namespace tagrix

#endif
