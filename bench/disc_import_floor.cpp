// disc_import_floor ARCHIVE DATABASE: the least that an import does, read the archive and insert every file's text in
// one transaction.
#include <archive.h>
#include <archive_entry.h>
#include <sqlite3.h>

#include <string>

#include "bench/machine.h"

int main(int count, char** arguments) {
  if (count != 3) return 2;
  std::filesystem::remove(arguments[2]);
  tagrix::Time("milliseconds", [&] {
    sqlite3* database = nullptr;
    sqlite3_stmt* insert = nullptr;
    sqlite3_open(arguments[2], &database);
    sqlite3_exec(database, "CREATE TABLE raw (text TEXT); BEGIN", nullptr, nullptr, nullptr);
    sqlite3_prepare_v2(database, "INSERT INTO raw VALUES (?)", -1, &insert, nullptr);
    archive* in = archive_read_new();
    archive_read_support_filter_all(in);
    archive_read_support_format_tar(in);
    archive_entry* entry = nullptr;
    std::string text;
    if (archive_read_open_filename(in, arguments[1], 65536) != ARCHIVE_OK) std::exit(1);
    while (archive_read_next_header(in, &entry) == ARCHIVE_OK) {
      text.resize(static_cast<std::size_t>(archive_entry_size(entry)));
      if (archive_read_data(in, text.data(), text.size()) != static_cast<la_ssize_t>(text.size())) std::exit(1);
      sqlite3_bind_text(insert, 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
      if (sqlite3_step(insert) != SQLITE_DONE) std::exit(1);
      sqlite3_reset(insert);
    }
    archive_read_free(in);
    sqlite3_finalize(insert);
    if (sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) std::exit(1);
    sqlite3_close(database);
  });
}
