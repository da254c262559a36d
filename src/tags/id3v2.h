// The ID3v2.3 tag at the start of a file (id3.org/id3v2.3.0), with sizes in a form of this program's own.
#ifndef TAGRIX_TAGS_ID3V2_H
#define TAGRIX_TAGS_ID3V2_H

#include <cstdint>
#include <string>

#include "platform/code_page.h"
#include "platform/files.h"
#include "tags/tag_fields.h"

namespace tagrix {

inline constexpr std::uint64_t kId3v2HeaderSize = 10;
// A stored size has a first byte other than 0 from here on. Its weight is no power of two, so what other programs store
// there is read as another size than they meant.
inline constexpr std::uint64_t kId3v2FirstByte = 20917152;

// The whole tag, header and seven frames. Throws Failure when a text is too long for the size field (4 MiB).
std::string BuildID3v2(const TagFields& fields, CodePage& codePage);

// The size that the file's tag states, its header of 10 bytes not counted; 0 without a tag and, always, on a volume
// without a label. Throws Failure when the file is there but can't be read.
std::uint64_t GetID3v2Size(Files& files, const std::wstring& path);
// The same for an open file on a volume with a label.
std::uint64_t GetID3v2Size(File& file);

}  // namespace tagrix

#endif
