// Writes the tags of one audio file by the standard, and tells for which files that matters.
#ifndef TAGRIX_TAGS_STANDARD_TAGS_H
#define TAGRIX_TAGS_STANDARD_TAGS_H

#include <string>
#include <vector>

#include "base/progress.h"
#include "tags/id3tag.h"
#include "tags/tag_fields.h"
#include "tags/tag_journal.h"

namespace tagrix {

// What WriteTags would do to a file that WriteStandardTags doesn't.
struct TagConcerns {
  bool dropsFrames = false;    // covers, lyrics and whatever else an ID3v2 tag holds
  bool oldTag = false;         // there is one, the end of which stays before the sound
  bool longText = false;       // a text of 127 bytes or more, which makes a frame size that others read wrong
  bool foreignText = false;    // a text that is not in the code page, or not in ISO-8859-1
  bool overwritesEnd = false;  // there is no ID3v1 tag to be replaced

  bool Any() const { return dropsFrames || oldTag || longText || foreignText || overwritesEnd; }
};

// A look at a file that is to be tagged.
struct TagOutlook {
  TagConcerns concerns;
  std::vector<TagPatch>
      patches;  // what WriteStandardTags would write in place; none: nothing at all, or all of it anew
};

// Writes nothing. None for a file that can't be tagged. Throws Failure when it can't be read, or nothing can be
// written.
TagOutlook LookAtTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2);

struct StandardWritten {
  bool written = false;
  std::vector<std::string> aside;  // what had no place among the frames, by name; it is kept in a private one
};

// ID3v2.3, or 2.4 where the file has that: our seven frames take the place of the old ones, every other frame stays bit
// for bit; frames of 2.2 become what they are called since. Where the changes fit into the old tag and the journal
// holds them they are written in place; else into a copy that takes the file's place in one call, with 1 KiB of padding
// in the tag. ID3v1 is written over an old one or appended. A file that is already as it should be is left alone.
//
// Not written when WriteTags would refuse it, or when its old tag reaches beyond its end. Throws Failure like
// WriteTags; the file is then as it was, or the journal knows that it is half-written.
StandardWritten WriteStandardTags(const TagPorts& ports, const TagFields& fields, const std::wstring& path, bool id3v1,
                                  bool id3v2, TagJournal& journal, Progress& progress);

}  // namespace tagrix

#endif
