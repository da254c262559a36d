// Archives of disc records as they are distributed: packed in a tar file of any compression, or a folder. A record's
// folder names its category; a file holds one disc and is named by its id, or many discs, each after a line
// "#FILENAME=" with its id.
#ifndef TAGRIX_DISCSERVER_ARCHIVE_READER_H
#define TAGRIX_DISCSERVER_ARCHIVE_READER_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace discserver {

// A record as it stands in an archive.
struct ArchivedRecord {
  std::string category, id;          // "rock", "47013c08"; neither is checked
  std::string file;                  // the bytes; empty where the record is a link
  std::string linkCategory, linkId;  // of the record that this one is another name of
};

using RecordSink = std::function<void(ArchivedRecord&&)>;

// Hands over every file's records in the archive's order. Throws std::runtime_error, with a text for the user, when the
// archive can't be read or is damaged, after the records before the damage.
void ReadArchive(const std::filesystem::path& archive, const RecordSink& sink);

// Cuts the bytes of one file, handed over in pieces, into its records. Holds no more than one record; what is longer
// than a record may be is handed over without its end.
class RecordSplitter {
 public:
  static constexpr std::size_t kMaxRecord = std::size_t{1} << 20;

  // `path` as it stands in the archive.
  RecordSplitter(std::string_view path, const RecordSink& sink);
  void Take(std::string_view bytes);
  void End();

 private:
  void Emit(std::string&& file);

  const RecordSink& sink_;
  std::string category_, name_;
  std::string pending_;
  std::size_t searched_ = 0;  // of pending_, for the next record's beginning
};

}  // namespace discserver

#endif
