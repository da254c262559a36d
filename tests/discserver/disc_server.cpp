#include "discserver/disc_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "discserver/import.h"

namespace discserver {
namespace {

std::string SampleDatabase(const TemporaryFolder& folder) {
  Import({TAGRIX_RECORDS}, folder / "discs.db", [](const ImportCounts&) {});
  return folder / "discs.db";
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string name = std::filesystem::temp_directory_path() / "discserver-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("mkdtemp");
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

Program::Program(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), TAGRIX_DISCSERVER);
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", 0, 0);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  const int failed = posix_spawn(&process_, pointers[0], &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  output_ = ends[0];
  if (failed != 0) throw std::runtime_error("The disc server can't be started");
}

Program::~Program() {
  if (process_ != 0) {
    Signal(SIGKILL);
    Wait();
  }
  close(output_);
}

std::string Program::ReadLine() {
  std::string line;
  for (char c = 0; read(output_, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

void Program::Signal(int signal) const { kill(process_, signal); }

int Program::Wait() {
  int status = 0;
  waitpid(std::exchange(process_, 0), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

DiscServer::DiscServer() : program_({"serve", "--database", SampleDatabase(folder_)}) {
  const std::string line = program_.ReadLine();
  port_ = std::stoi("0" + line.substr(line.rfind(':') + 1));
}

int DiscServer::Open(const std::string& bytes, const char* from) const {
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(static_cast<in_port_t>(port_));
  server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int connection = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in client{};
  client.sin_family = AF_INET;
  inet_pton(AF_INET, from, &client.sin_addr);
  if (bind(connection, reinterpret_cast<sockaddr*>(&client), sizeof client) != 0) throw std::runtime_error("bind");
  if (connect(connection, reinterpret_cast<sockaddr*>(&server), sizeof server) != 0)
    throw std::runtime_error("connect");
  // What the server doesn't want to hear it need not read.
  static_cast<void>(send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL));
  return connection;
}

std::string DiscServer::Ask(const std::string& request) const {
  const int connection = Open(request);
  std::string answer;
  std::array<char, 4096> buffer{};
  for (ssize_t got = 0; (got = recv(connection, buffer.data(), buffer.size(), 0)) > 0;) {
    answer.append(buffer.data(), static_cast<std::size_t>(got));
  }
  close(connection);
  return answer;
}

std::string DiscServer::Get(const std::string& path) const {
  const std::string answer = Ask("GET " + path + " HTTP/1.0\r\n\r\n");
  return answer.substr(std::min(answer.find("\r\n\r\n"), answer.size() - 4) + 4);
}

}  // namespace discserver
