// The disc records: xmcd files in a folder, one folder a category, each file named by its disc id.
#ifndef TAGRIX_DISCSERVER_RECORD_STORE_H
#define TAGRIX_DISCSERVER_RECORD_STORE_H

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace discserver {

struct Record {
  std::string category, id;  // "rock", eight hexadecimal digits
  std::string title;         // "Artist / Album", ISO 8859-1 like the whole record
  std::string text;          // the record's lines, each ended by CR LF
  std::set<std::string> words;
  bool otherVersion = false;  // a record with the same title stands before it
};

// Sorted by category and disc id. Files without a DTITLE are left out. Throws std::filesystem::filesystem_error.
std::vector<Record> LoadRecords(const std::filesystem::path& folder);

// The records that hold all of the words, letter case ignored; with "OR" among the words those that hold any of them.
std::vector<const Record*> FindByWords(const std::vector<Record>& records, std::string_view words);
// Null when there is none.
const Record* FindById(const std::vector<Record>& records, std::string_view category, std::string_view id);

}  // namespace discserver

#endif
