// The ID3v1.1 tag: 128 bytes at the end of a file ("ID3 made easy", id3.org/ID3v1), here padded with blanks.
#ifndef TAGRIX_TAGS_ID3V1_H
#define TAGRIX_TAGS_ID3V1_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_page.h"
#include "platform/files.h"
#include "tags/tag_fields.h"

namespace tagrix {

inline constexpr std::string_view kId3v1Mark = "TAG";

// The 125 bytes that follow "TAG". `styles`: the genre names, position i naming genre 147 - i. Throws Failure when the
// track is not a whole number from 0 to 255.
std::string BuildID3v1(const TagFields& fields, const std::vector<std::wstring>& styles, CodePage& codePage);

// Whether the file ends with a tag. Always false on a volume without a label. Throws Failure when the file is there but
// can't be read.
bool HasID3v1(Files& files, const std::wstring& path);
// The same for an open file of this size on a volume with a label.
bool HasID3v1(File& file, std::uint64_t size);

}  // namespace tagrix

#endif
