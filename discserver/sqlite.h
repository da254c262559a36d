// SQLite as owned objects: a database and its prepared statements. Errors are exceptions with a text for the user.
#ifndef TAGRIX_DISCSERVER_SQLITE_H
#define TAGRIX_DISCSERVER_SQLITE_H

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace discserver {

// One connection, for one thread at a time.
class Database {
 public:
  enum class Mode { Existing, Create };

  // Throws std::runtime_error.
  Database(const std::string& path, Mode mode);
  void Run(const char* sql);
  [[noreturn]] void Fail() const;
  sqlite3* Handle() const { return handle_.get(); }

 private:
  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> handle_;
  std::string path_;
};

// A statement that is bound and run over and over.
class Statement {
 public:
  Statement(const Database& database, const char* sql);

  // Starts anew with these values for the statement's question marks. Texts have to outlive the steps.
  template <typename... Values>
  Statement& Bind(const Values&... values) {
    sqlite3_reset(handle_.get());
    int place = 0;
    (BindOne(++place, values), ...);
    return *this;
  }
  // Fetches the next row; false after the last.
  bool Step();
  // Runs to the end, for statements without rows.
  void Run() {
    while (Step()) {
    }
  }

  std::int64_t Number(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  std::string Text(int column) const;

 private:
  void BindOne(int place, std::int64_t number) { sqlite3_bind_int64(handle_.get(), place, number); }
  void BindOne(int place, std::string_view text) {
    sqlite3_bind_text64(handle_.get(), place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
  }

  const Database* database_;
  std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> handle_;
};

}  // namespace discserver

#endif
