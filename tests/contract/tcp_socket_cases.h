// The sockets that share one contract on this system, each with its event loop and a server to talk to.
#ifndef TAGRIX_TESTS_CONTRACT_TCP_SOCKET_CASES_H
#define TAGRIX_TESTS_CONTRACT_TCP_SOCKET_CASES_H

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "net/loopback_server.h"

#ifdef _WIN32
#include "contract/message_loop.h"
#include "win32/tcp_socket.h"
#else
#include "fakes/fakes.h"
#include "fakes/posix_socket.h"
#endif

namespace tagrix {

// A real socket and a real server. `Serve` makes the server that answers a request (ended by an empty line) and says on
// which port; with `close` it closes afterwards.
template <typename Events, typename Socket>
struct RealSocketCase {
  int Serve(std::string answer, bool close) {
    server.emplace([answer = std::move(answer), close](Peer& peer) {
      if (peer.ReadTo("\r\n\r\n").empty()) return;
      peer.Write(answer);
      if (!close) peer.ReadAll();
    });
    return server->Port();
  }
  int Refuse() { return RefusedPort(); }

  Events events;
  std::optional<LoopbackServer> server;  // outlives the socket, whose end it waits for
  Socket socket{events};
};

#ifdef _WIN32

struct MessageSocket : WinTcpSocket {
  explicit MessageSocket(MessageLoop&) {}
};
using RealSocket = RealSocketCase<MessageLoop, MessageSocket>;
using SocketCases = testing::Types<RealSocket>;

#else

using RealSocket = RealSocketCase<PosixEvents, PosixSocket>;

struct FakeSocketCase {
  int Serve(const std::string& answer, bool close) {
    socket.serve = [answer](const std::string&) { return answer; };
    socket.closeAfterAnswer = close;
    return 80;
  }
  int Refuse() {
    socket.serve = nullptr;
    return 80;
  }

  FakeEvents events;
  FakeSocket socket{events};
};
using SocketCases = testing::Types<FakeSocketCase, RealSocket>;

#endif

}  // namespace tagrix

#endif
