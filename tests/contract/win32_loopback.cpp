#include "contract/win32_loopback.h"

#include <stdexcept>

namespace tagrix {
namespace {

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

SOCKET Bind(int& port) {
  const SOCKET listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = Loopback(0);
  const auto at = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, at, sizeof address) != 0) throw std::runtime_error("no port on the loopback");
  int size = sizeof address;
  getsockname(listener, at, &size);
  port = ntohs(address.sin_port);
  return listener;
}

}  // namespace

bool Peer::Readable() const {
  while (!stop_) {
    timeval wait{0, 50'000};
    fd_set waited{1, {socket_.Get()}};
    if (select(0, &waited, nullptr, nullptr, &wait) > 0) return true;
  }
  return false;
}

std::string Peer::ReadTo(std::string_view end) {
  std::string all;
  char bytes[4096];
  while ((end.empty() || !all.ends_with(end)) && Readable()) {
    const int count = recv(socket_.Get(), bytes, sizeof bytes, 0);
    if (count <= 0) break;
    all.append(bytes, static_cast<size_t>(count));
  }
  return all;
}

void Peer::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const int count = send(socket_.Get(), bytes.data(), static_cast<int>(bytes.size()), 0);
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<size_t>(count));
  }
}

void Peer::Reset() {
  const linger abort{1, 0};
  setsockopt(socket_.Get(), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&abort), sizeof abort);
}

LoopbackServer::LoopbackServer(std::function<void(Peer&)> serve) : listener_(Bind(port_)) {
  listen(listener_.Get(), 8);
  thread_ = std::thread([this, serve = std::move(serve)] {
    while (true) {
      Peer peer(accept(listener_.Get(), nullptr, nullptr), stop_);
      if (stop_) return;
      serve(peer);
    }
  });
}

LoopbackServer::~LoopbackServer() {
  stop_ = true;
  // A last connection wakes the thread when it waits for one.
  const Unique<SocketTraits> waker(socket(AF_INET, SOCK_STREAM, 0));
  const sockaddr_in address = Loopback(port_);
  (void)connect(waker.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
  thread_.join();
}

int RefusedPort() {
  const Winsock winsock;
  int port = 0;
  closesocket(Bind(port));
  return port;
}

}  // namespace tagrix
