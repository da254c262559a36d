#include "discserver/store.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "discserver/xmcd.h"

namespace discserver {
namespace {

// The database's own number of this program's files, and of their layout.
constexpr std::int64_t kApplication = 0x64697363, kLayout = 2;

// Pages are large because reading a list of hits is bound to their number. The index keeps no copy of the texts and no
// lengths; its pieces are merged when an import ends and not before.
constexpr const char* kCreate = R"(
  PRAGMA page_size = 65536;
  PRAGMA journal_mode = TRUNCATE;
  BEGIN IMMEDIATE;
  CREATE TABLE disc (number INTEGER PRIMARY KEY, category TEXT NOT NULL, id TEXT NOT NULL, revision INTEGER NOT NULL,
                     record TEXT NOT NULL);
  CREATE UNIQUE INDEX disc_id ON disc (category, id);
  CREATE TABLE category (name TEXT PRIMARY KEY, discs INTEGER NOT NULL) WITHOUT ROWID;
  CREATE VIRTUAL TABLE words USING fts5 (artist, album, content = '', columnsize = 0,
                                         tokenize = 'unicode61 remove_diacritics 2');
  INSERT INTO words (words, rank) VALUES ('automerge', 0), ('crisismerge', 1999), ('hashsize', 100000000);
  PRAGMA application_id = 1684632419;
  PRAGMA user_version = 2;
  COMMIT)";

constexpr const char* kFind = "SELECT category, id, revision, record FROM disc WHERE category = ? AND id = ?";

// A place in the index: how long the title is, up to 255, and the disc's number below it, so that walking over the
// index meets short titles first.
constexpr int kNumberBits = 32;
std::int64_t Place(std::int64_t number, const std::string& title) {
  return static_cast<std::int64_t>(std::min<std::size_t>(title.size(), 255)) << kNumberBits | number;
}
std::int64_t NumberAt(std::int64_t place) { return place & ((std::int64_t{1} << kNumberBits) - 1); }

std::int64_t Pragma(const Database& database, const char* sql) {
  Statement pragma(database, sql);
  return pragma.Step() ? pragma.Number(0) : 0;
}

// Ours has its number; one of another program is left alone.
void CheckLayout(const Database& database, const std::string& path) {
  if (Pragma(database, "PRAGMA application_id") != kApplication || Pragma(database, "PRAGMA user_version") != kLayout) {
    throw std::runtime_error(path + ": is not a database of this version of the disc server");
  }
}

Database OpenToRead(const std::string& path) {
  Database database(path, Database::Mode::Existing);
  CheckLayout(database, path);
  database.Run("PRAGMA query_only = ON; PRAGMA cache_size = -8192");  // KiB, for each of the server's threads
  return database;
}

Database OpenToWrite(const std::string& path) {
  Database database(path, Database::Mode::Create);
  if (Pragma(database, "SELECT count(*) FROM sqlite_schema") == 0) database.Run(kCreate);
  CheckLayout(database, path);
  database.Run("PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = NORMAL; PRAGMA cache_size = -32768");
  return database;
}

std::optional<Record> Fetch(Statement& statement) {
  if (!statement.Step()) return std::nullopt;
  Record record{{statement.Text(0), statement.Text(1), ""}, static_cast<int>(statement.Number(2)), statement.Text(3)};
  record.disc.title = DiscTitle(record.text);
  statement.Bind();  // ends the read, so that it locks nothing
  return record;
}

}  // namespace

Store::Store(const std::string& path)
    : database_(OpenToRead(path)),
      match_(database_, "SELECT rowid FROM words WHERE words MATCH ? ORDER BY rowid LIMIT ?"),
      at_(database_, "SELECT category, id, revision, record FROM disc WHERE number = ?"),
      find_(database_, kFind),
      withId_(database_,
              "SELECT category, id, record FROM category JOIN disc ON category = name WHERE id = ? ORDER BY name"),
      categories_(database_, "SELECT name, discs FROM category") {}

std::vector<std::int64_t> Store::Match(const std::string& expression, std::size_t most) {
  std::vector<std::int64_t> places;
  match_.Bind(expression, static_cast<std::int64_t>(most));
  while (match_.Step()) places.push_back(match_.Number(0));
  return places;
}

std::optional<Record> Store::At(std::int64_t place) { return Fetch(at_.Bind(NumberAt(place))); }

std::optional<Record> Store::Find(std::string_view category, std::string_view id) {
  return Fetch(find_.Bind(category, id));
}

std::vector<Disc> Store::WithId(std::string_view id) {
  std::vector<Disc> discs;
  withId_.Bind(id);
  while (withId_.Step()) discs.push_back({withId_.Text(0), withId_.Text(1), DiscTitle(withId_.Text(2))});
  return discs;
}

std::map<std::string, std::int64_t> Store::Categories() {
  std::map<std::string, std::int64_t> categories;
  categories_.Bind();
  while (categories_.Step()) categories[categories_.Text(0)] = categories_.Number(1);
  return categories;
}

StoreWriter::StoreWriter(const std::string& path) : database_(OpenToWrite(path)) {
  find_.emplace(database_, kFind);
  insert_.emplace(database_,
                  "INSERT INTO disc (category, id, revision, record) VALUES (?, ?, ?, ?) "
                  "ON CONFLICT DO NOTHING");
  known_.emplace(database_, "SELECT number, revision, record FROM disc WHERE category = ? AND id = ?");
  revise_.emplace(database_, "UPDATE disc SET revision = ?, record = ? WHERE number = ?");
  count_.emplace(database_,
                 "INSERT INTO category VALUES (?, ?) ON CONFLICT DO UPDATE SET discs = discs + excluded.discs");
  index_.emplace(database_, "INSERT INTO words (rowid, artist, album) VALUES (?, ?, ?)");
  unindex_.emplace(database_, "INSERT INTO words (words, rowid, artist, album) VALUES ('delete', ?, ?, ?)");
}

Added StoreWriter::Add(const Record& record) {
  if (!writing_) database_.Run("BEGIN IMMEDIATE");
  writing_ = true;
  const Disc& disc = record.disc;
  insert_->Bind(disc.category, disc.id, record.revision, record.text).Run();
  if (sqlite3_changes(database_.Handle()) == 1) {
    ++counts_[disc.category];
    changes_.push_back({Place(sqlite3_last_insert_rowid(database_.Handle()), disc.title), disc.title, false});
    return Added::New;
  }
  known_->Bind(disc.category, disc.id).Step();
  const std::int64_t number = known_->Number(0);
  const bool newer = record.revision > known_->Number(1);
  const std::string title = DiscTitle(known_->Text(2));
  known_->Bind();
  if (!newer) return Added::Known;
  revise_->Bind(record.revision, record.text, number).Run();
  changes_.push_back({Place(number, title), title, true});
  changes_.push_back({Place(number, disc.title), disc.title, false});
  return Added::Revised;
}

std::optional<Record> StoreWriter::Find(std::string_view category, std::string_view id) {
  return Fetch(find_->Bind(category, id));
}

// In the order of their places: each step back would make a piece of index of its own.
void StoreWriter::WriteIndex() {
  std::vector<std::pair<std::int64_t, std::size_t>> order;
  order.reserve(changes_.size());
  for (const IndexChange& change : changes_) order.emplace_back(change.place, order.size());
  std::sort(order.begin(), order.end());
  for (const auto& [place, i] : order) {
    const IndexChange& change = changes_[i];
    const auto [artist, album] = SplitTitle(change.title);
    (change.remove ? unindex_ : index_)->Bind(change.place, artist, album).Run();
  }
  changes_.clear();
}

void StoreWriter::Commit() {
  if (!writing_) return;
  WriteIndex();
  for (const auto& [category, discs] : counts_) count_->Bind(category, discs).Run();
  counts_.clear();
  database_.Run("COMMIT");
  writing_ = false;
}

// Without its journal, which would stay as an empty file.
void StoreWriter::Finish() {
  Commit();
  database_.Run("INSERT INTO words (words) VALUES ('optimize'); PRAGMA journal_mode = DELETE");
}

}  // namespace discserver
