// A folder of its own for databases and archives, and the program as a process.
#ifndef TAGRIX_TESTS_DISCSERVER_FIXTURES_H
#define TAGRIX_TESTS_DISCSERVER_FIXTURES_H

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "discserver/import.h"

namespace discserver {

// Removed with its object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "discserver-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("mkdtemp");
    path_ = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

inline ImportCounts ImportInto(const std::string& database, const std::string& archive) {
  return Import({archive}, database, [](const ImportCounts&) {});
}

// Runs the program to its end; returns its exit code. `first` is a command that starts it.
inline int RunProgram(const std::string& arguments, const std::string& first = "") {
  const int status = std::system((first + " " TAGRIX_DISCSERVER " " + arguments + " >/dev/null 2>&1").c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace discserver

#endif
