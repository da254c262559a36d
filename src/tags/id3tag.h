// Writes the tags of one audio file.
#ifndef TAGRIX_TAGS_ID3TAG_H
#define TAGRIX_TAGS_ID3TAG_H

#include <string>

#include "core/context.h"
#include "tags/tag_fields.h"

namespace tagrix {

// ID3v1 alone is written in place: over an old tag, otherwise over the last 128 bytes of the file. ID3v2 takes a copy
// of the file, made as "temp" in the same folder and put in the file's place in one call; an ID3v1 tag that is wanted
// too is written into that copy. Shows what it does in the status line and lets pending events run.
//
// False, and nothing written, when there is no such file, it is read-only, or (ID3v2) its old tag reaches beyond its
// end or is so large that its size isn't known. True when the tags were written, and when the copy could not be put in
// place, which the user has then been told. Throws Failure for everything else; the file is then as it was.
bool WriteTags(Context& context, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2);

}  // namespace tagrix

#endif
