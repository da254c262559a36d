// Writes the tags of one audio file.
#ifndef TAGRIX_TAGS_ID3TAG_H
#define TAGRIX_TAGS_ID3TAG_H

#include <string>
#include <vector>

#include "base/progress.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "tags/tag_fields.h"

namespace tagrix {

// What the writer works with. `styles`: the genre names, position i naming ID3v1 genre 147 - i.
struct TagPorts {
  Files& files;
  CodePage& codePage;
  std::vector<std::wstring> styles;
};

// ID3v1 alone is written in place: over an old tag, otherwise over the last 128 bytes of the file. ID3v2 takes a copy
// of the file, made as "temp" in the same folder and put in the file's place in one call; an ID3v1 tag that is wanted
// too is written into that copy.
//
// False, and nothing written, when there is no such file, it is read-only, or (ID3v2) its old tag reaches beyond its
// end or is so large that its size isn't known. Throws Failure for everything else, with Action::Replace when the copy
// could not be put in place; the file is then as it was.
bool WriteTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2,
               Progress& progress);

}  // namespace tagrix

#endif
