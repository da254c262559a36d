// An ID3v2 tag by the standard: seven frames of our own behind whatever else the file's tags hold.
#ifndef TAGRIX_TAGS_STANDARD_ID3V2_H
#define TAGRIX_TAGS_STANDARD_ID3V2_H

#include <cstddef>
#include <string>
#include <string_view>

#include "tags/id3v2_frames.h"
#include "tags/id3v2_header.h"
#include "tags/tag_fields.h"

namespace tagrix {

inline constexpr std::size_t kLongestId3v2 = kSyncsafeEnd - 1 + kId3v2Header;  // bytes

// Whether ISO-8859-1 holds the text, its control characters aside, which many read as those of windows-1252.
bool FitsLatin1(std::wstring_view text);

// Whether a new tag takes the frame's place: title, track, artist, album, year, genre, and the comment without a
// description (or with ours). Comments with one are other programs' notes.
bool IsReplaced(const Id3v2Frame& frame, int version);

// The whole tag without padding. Kept frames come first, so that they stay where they are when a title becomes longer.
// Empty fields have no frame. Text is ISO-8859-1 where that holds it, else UTF-16 with a byte order mark in 2.3 and
// UTF-8 in 2.4. Throws Failure when it is longer than a tag can be (256 MiB).
std::string BuildStandardId3v2(const Id3v2Frames& old, const TagFields& fields);

// The tag followed by zeros up to a length, which its size tells of.
std::string Padded(std::string tag, std::size_t length);

}  // namespace tagrix

#endif
