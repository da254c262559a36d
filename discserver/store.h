// The disc records in one SQLite database, with an index of the words of their artists and titles.
#ifndef TAGRIX_DISCSERVER_STORE_H
#define TAGRIX_DISCSERVER_STORE_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "discserver/sqlite.h"

namespace discserver {

// A disc's name and title; texts are UTF-8.
struct Disc {
  std::string category, id;  // "rock", "47013c08"
  std::string title;         // "Artist / Title"
};

struct Record {
  Disc disc;
  int revision = 0;
  std::string text;  // as RecordText gives it
};

// Reads; one thread at a time. All functions throw std::runtime_error.
class Store {
 public:
  explicit Store(const std::string& path);

  // Places in the index of discs that match an expression of FTS5, the shortest titles first: among titles that hold
  // the same words those are the best.
  std::vector<std::int64_t> Match(const std::string& expression, std::size_t most);
  // The disc and its record at a place that Match gave; nothing when it has gone since.
  std::optional<Record> At(std::int64_t place);
  std::optional<Record> Find(std::string_view category, std::string_view id);
  // The discs of all categories with this id.
  std::vector<Disc> WithId(std::string_view id);
  // How many discs each category holds.
  std::map<std::string, std::int64_t> Categories();

 private:
  Database database_;
  Statement match_, at_, find_, withId_, categories_;
};

enum class Added { New, Revised, Known };

// Adds records. What has been added since the last Commit is lost with the process, and only that.
class StoreWriter {
 public:
  // Makes the database when there is none.
  explicit StoreWriter(const std::string& path);

  // A disc that is there already is replaced by a higher revision only.
  Added Add(const Record& record);
  std::optional<Record> Find(std::string_view category, std::string_view id);
  void Commit();
  // Commits, and brings the index into the form that is searched fastest.
  void Finish();

 private:
  // A title to put into the index, or to take out of it.
  struct IndexChange {
    std::int64_t place;
    std::string title;
    bool remove;
  };

  void WriteIndex();

  Database database_;
  std::optional<Statement> find_, insert_, known_, revise_, count_, index_, unindex_;
  std::vector<IndexChange> changes_;
  std::map<std::string, std::int64_t> counts_;
  bool writing_ = false;
};

}  // namespace discserver

#endif
