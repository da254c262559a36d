#include "discserver/sqlite.h"

#include <stdexcept>

namespace discserver {

Database::Database(const std::string& path, Mode mode) : handle_(nullptr, sqlite3_close), path_(path) {
  sqlite3* handle = nullptr;
  // To read, too, writing has to be possible: what an import that was killed has left half done is undone first.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
  const int result = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) Fail();
  constexpr int kLongestWait = 10'000;  // milliseconds, for another process that writes
  sqlite3_busy_timeout(handle, kLongestWait);
}

void Database::Run(const char* sql) {
  if (sqlite3_exec(Handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

void Database::Fail() const { throw std::runtime_error(path_ + ": " + sqlite3_errmsg(Handle())); }

Statement::Statement(const Database& database, const char* sql)
    : database_(&database), handle_(nullptr, sqlite3_finalize) {
  sqlite3_stmt* handle = nullptr;
  if (sqlite3_prepare_v3(database.Handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &handle, nullptr) != SQLITE_OK) {
    database.Fail();
  }
  handle_.reset(handle);
}

bool Statement::Step() {
  const int result = sqlite3_step(handle_.get());
  if (result == SQLITE_ROW) return true;
  sqlite3_reset(handle_.get());
  if (result != SQLITE_DONE) database_->Fail();
  return false;
}

std::string Statement::Text(int column) const {
  const unsigned char* text = sqlite3_column_text(handle_.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column));
  return text == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(text), size);
}

}  // namespace discserver
