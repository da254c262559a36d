// Texts between the encodings that disc records and clients use: UTF-8, and windows-1252, which holds ISO 8859-1.
#ifndef TAGRIX_DISCSERVER_TEXT_H
#define TAGRIX_DISCSERVER_TEXT_H

#include <string>
#include <string_view>
#include <vector>

namespace discserver {

// What is valid UTF-8 stays as it is, all else is taken for windows-1252. A byte that windows-1252 leaves open becomes
// the control character of its number, so that every text finds its way back.
std::string ToUtf8(std::string bytes);
// Characters that windows-1252 lacks become "?". `utf8` has to be valid.
std::string ToLatin1(std::string_view utf8);

// The pieces between blanks, without empty ones.
std::vector<std::string> Words(std::string_view text);

}  // namespace discserver

#endif
