// The disc server for tests: a folder of its own for databases and archives, and the program as a process.
#ifndef TAGRIX_TESTS_DISCSERVER_DISC_SERVER_H
#define TAGRIX_TESTS_DISCSERVER_DISC_SERVER_H

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace discserver {

// Removed with its object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::string operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

// The program with these arguments; killed with its object if it still runs.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  std::string ReadLine();  // of its output
  void Signal(int signal) const;
  int Wait();  // for its end; returns its exit code, or the signal that ended it as a negative number

 private:
  pid_t process_ = 0;
  int output_ = -1;
};

// The program serving the sample records on the loopback.
class DiscServer {
 public:
  DiscServer();

  int Port() const { return port_; }
  // The whole answer to these bytes, up to the server's end of the connection.
  std::string Ask(const std::string& request) const;
  // The body of the answer to a GET.
  std::string Get(const std::string& path) const;
  // A connection that has sent these bytes, and nothing more; the caller closes it.
  int Open(const std::string& bytes, const char* from = "127.0.0.1") const;
  Program& Process() { return program_; }

 private:
  TemporaryFolder folder_;
  Program program_;
  int port_ = 0;
};

}  // namespace discserver

#endif
