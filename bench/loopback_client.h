// A client of servers on the loopback that sends what it is told to, byte by byte.
#ifndef TAGRIX_BENCH_LOOPBACK_CLIENT_H
#define TAGRIX_BENCH_LOOPBACK_CLIENT_H

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <string>

namespace loopback {

// A connection, from that address of the loopback, over which these bytes were sent as far as the server took them; the
// caller closes it. -1 when it can't be had.
inline int Open(int port, const std::string& bytes, const char* from = "127.0.0.1") {
  const int connection = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in own{AF_INET, 0, {inet_addr(from)}, {}};
  const sockaddr_in server{AF_INET, htons(static_cast<in_port_t>(port)), {htonl(INADDR_LOOPBACK)}, {}};
  if (bind(connection, reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0 ||
      connect(connection, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0) {
    close(connection);
    return -1;
  }
  static_cast<void>(send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL));
  return connection;
}

// All that comes back, up to the server's end of the connection.
inline std::string Ask(int port, const std::string& request) {
  const int connection = Open(port, request);
  std::string answer;
  std::array<char, 65536> buffer{};
  for (ssize_t got = 0; (got = recv(connection, buffer.data(), buffer.size(), 0)) > 0;) {
    answer.append(buffer.data(), static_cast<std::size_t>(got));
  }
  close(connection);
  return answer;
}

}  // namespace loopback

#endif
