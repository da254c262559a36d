// One disc record: its text as it is kept, and what it says. Source: the xmcd record format.
#ifndef TAGRIX_DISCSERVER_XMCD_H
#define TAGRIX_DISCSERVER_XMCD_H

#include <string>
#include <string_view>
#include <vector>

namespace discserver {

// A record's file as text: UTF-8, each line ended by LF, without the lines that would end or split a reply (empty ones
// and those that begin with a dot).
std::string RecordText(std::string_view file);

// The values of all lines "key=value", joined: long ones are continued on further lines with the same key. `key` ends
// with "=". Of this and the functions below `record` is what RecordText gives.
std::string Value(std::string_view record, std::string_view key);
std::string DiscTitle(std::string_view record);  // "Artist / Title"
// "# Revision: 3"; 0 when it isn't told.
int Revision(std::string_view record);
// The record without the lines of DYEAR and DGENRE, which clients below protocol level 5 don't know.
std::string WithoutYearAndGenre(std::string_view record);

struct ArtistAndTitle {
  std::string artist, title;
};
// "Artist / Title"; a text without " / " is both.
ArtistAndTitle SplitTitle(std::string_view title);

struct Track {
  std::string title;
  long milliseconds = 0;  // 0 when the record doesn't tell
};
// Titles from TTITLE0 up to the first number that is missing, with the lengths between the frame offsets.
std::vector<Track> Tracks(std::string_view record);

bool IsDiscId(std::string_view id);  // eight hexadecimal digits, small letters

}  // namespace discserver

#endif
