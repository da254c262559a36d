#include "net/loopback_server.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <stdexcept>

namespace tagrix {
namespace {

#ifdef _WIN32
using Socket = SOCKET;
using SocketSize = int;
void CloseSocket(Socket socket) { closesocket(socket); }
void Start() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}
constexpr int kNoSignal = 0;
#else
using Socket = int;
using SocketSize = socklen_t;
void CloseSocket(Socket socket) { close(socket); }
void Start() {}
constexpr int kNoSignal = MSG_NOSIGNAL;
#endif

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

Socket As(std::intptr_t socket) { return static_cast<Socket>(socket); }

std::intptr_t Bind(int& port) {
  Start();
  const Socket listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = Loopback(0);
  const auto at = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, at, sizeof address) != 0) throw std::runtime_error("no port on the loopback");
  SocketSize size = sizeof address;
  getsockname(listener, at, &size);
  port = ntohs(address.sin_port);
  return static_cast<std::intptr_t>(listener);
}

}  // namespace

bool Peer::Readable() const {
  while (!stop_) {
    timeval wait{0, 50'000};
    fd_set waited;
    FD_ZERO(&waited);
    FD_SET(As(socket_), &waited);
    if (select(static_cast<int>(socket_) + 1, &waited, nullptr, nullptr, &wait) > 0) return true;
  }
  return false;
}

std::string Peer::ReadTo(std::string_view end) {
  std::string all;
  char bytes[4096];
  while ((end.empty() || !all.ends_with(end)) && Readable()) {
    const auto count = recv(As(socket_), bytes, sizeof bytes, 0);
    if (count <= 0) break;
    all.append(bytes, static_cast<size_t>(count));
  }
  return all;
}

void Peer::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = send(As(socket_), bytes.data(), static_cast<int>(bytes.size()), kNoSignal);
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<size_t>(count));
  }
}

void Peer::Reset() {
  const linger abort{1, 0};
  setsockopt(As(socket_), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&abort), sizeof abort);
}

Peer::~Peer() { CloseSocket(As(socket_)); }

LoopbackServer::LoopbackServer(std::function<void(Peer&)> serve) : listener_(Bind(port_)) {
  listen(As(listener_), 8);
  thread_ = std::thread([this, serve = std::move(serve)] {
    while (true) {
      Peer peer(static_cast<std::intptr_t>(accept(As(listener_), nullptr, nullptr)), stop_);
      if (stop_) return;
      serve(peer);
    }
  });
}

LoopbackServer::~LoopbackServer() {
  stop_ = true;
  // A last connection wakes the thread when it waits for one.
  const Socket waker = socket(AF_INET, SOCK_STREAM, 0);
  const sockaddr_in address = Loopback(port_);
  (void)connect(waker, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  thread_.join();
  CloseSocket(waker);
  CloseSocket(As(listener_));
}

int RefusedPort() {
  int port = 0;
  CloseSocket(As(Bind(port)));
  return port;
}

}  // namespace tagrix
