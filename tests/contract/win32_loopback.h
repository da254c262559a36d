// A TCP server on the loopback that a test scripts: a function plays it for each connection.
#ifndef TAGRIX_TESTS_CONTRACT_WIN32_LOOPBACK_H
#define TAGRIX_TESTS_CONTRACT_WIN32_LOOPBACK_H

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include "win32/tcp_socket.h"

namespace tagrix {

// The server's end of one connection; its operations block.
class Peer {
 public:
  // Reading ends when `stop` is set, too.
  Peer(SOCKET socket, const std::atomic<bool>& stop) : socket_(socket), stop_(stop) {}

  // Reads until what was read ends with `end`, or (also when that is empty) the client closes.
  std::string ReadTo(std::string_view end);
  // Stops when the client has gone.
  void Write(std::string_view bytes);
  // Makes the end of the connection one without a farewell.
  void Reset();

 private:
  bool Readable() const;

  Unique<SocketTraits> socket_;
  const std::atomic<bool>& stop_;
};

// Serves one connection after the other on 127.0.0.1, in a thread of its own, until the server is destroyed, which ends
// a connection that is still open; the function has to return then.
class LoopbackServer {
 public:
  explicit LoopbackServer(std::function<void(Peer&)> serve);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  int Port() const { return port_; }

 private:
  const Winsock winsock_;
  int port_ = 0;
  Unique<SocketTraits> listener_;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

// A port on which nothing listens.
int RefusedPort();

}  // namespace tagrix

#endif
