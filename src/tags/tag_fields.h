// What is written into the tags of one file.
#ifndef TAGRIX_TAGS_TAG_FIELDS_H
#define TAGRIX_TAGS_TAG_FIELDS_H

#include <string>

namespace tagrix {

struct TagFields {
  std::wstring title;
  std::wstring track;  // its number, decimal
  std::wstring artist;
  std::wstring album;
  std::wstring year;
  std::wstring comment;
  std::wstring genre;  // its name
};

}  // namespace tagrix

#endif
