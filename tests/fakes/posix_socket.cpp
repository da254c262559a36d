#include "fakes/posix_socket.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

#include "fakes/utf8.h"

namespace tagrix {

void PosixEvents::DoEvents() {
  for (auto pending = posted_.size(); pending > 0 && !posted_.empty(); --pending) {
    const auto event = std::move(posted_.front());
    posted_.pop_front();
    event();
  }
  for (const int descriptor : Poll(0)) {
    const auto found = watched_.find(descriptor);
    if (found == watched_.end()) continue;  // an event before it has ended it
    const auto ready = found->second.ready;
    ready();
  }
}

void PosixEvents::Wait(int milliseconds) {
  if (posted_.empty()) Poll(milliseconds);
}

std::uint64_t PosixEvents::TickCount() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void PosixEvents::Watch(int descriptor, short events, std::function<void()> ready) {
  watched_[descriptor] = {events, std::move(ready)};
}

std::vector<int> PosixEvents::Poll(int milliseconds) const {
  std::vector<pollfd> polled;
  for (const auto& [descriptor, watched] : watched_) polled.push_back({descriptor, watched.events, 0});
  std::vector<int> ready;
  poll(polled.data(), polled.size(), milliseconds);
  for (const pollfd& one : polled) {
    if (one.revents != 0) ready.push_back(one.fd);
  }
  return ready;
}

void PosixSocket::Connect(const std::wstring& host, int port) {
  Close();
  state_ = SocketState::ResolvingHost;
  std::string name;
  AppendUtf8(name, host);
  events_.Post([this, name, port, attempt = attempt_] {
    if (attempt == attempt_) LookUp(name, port);
  });
}

void PosixSocket::Close() {
  ++attempt_;
  addresses_.clear();
  received_.clear();
  queued_.clear();
  End(SocketState::Closed);
}

void PosixSocket::End(SocketState state) {
  if (socket_ >= 0) {
    events_.Unwatch(socket_);
    close(socket_);
  }
  socket_ = -1;
  state_ = state;
}

void PosixSocket::LookUp(const std::string& host, int port) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (!host.empty() && getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) == 0) {
    for (const addrinfo* one = found; one != nullptr; one = one->ai_next) {
      const auto bytes = reinterpret_cast<const char*>(one->ai_addr);
      addresses_.emplace_back(bytes, bytes + one->ai_addrlen);
    }
    freeaddrinfo(found);
  }
  ConnectNext();
}

void PosixSocket::ConnectNext() {
  while (!addresses_.empty()) {
    const Address address = std::move(addresses_.front());
    addresses_.pop_front();
    const auto target = reinterpret_cast<const sockaddr*>(address.data());
    End(SocketState::Connecting);
    socket_ = socket(target->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (connect(socket_, target, static_cast<socklen_t>(address.size())) == 0 || errno == EINPROGRESS) {
      events_.Watch(socket_, POLLOUT, [this] { Connected(); });
      return;
    }
  }
  End(SocketState::Error);
}

void PosixSocket::Connected() {
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket_, SOL_SOCKET, SO_ERROR, &error, &size);
  if (error != 0) return ConnectNext();
  state_ = SocketState::Connected;
  WatchTransfer();
}

void PosixSocket::WatchTransfer() {
  events_.Watch(socket_, queued_.empty() ? POLLIN : POLLIN | POLLOUT, [this] { Transfer(); });
}

void PosixSocket::SendData(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  queued_ += bytes;
  WatchTransfer();
}

void PosixSocket::Transfer() {
  const unsigned attempt = attempt_;
  if (!queued_.empty()) SendQueued();
  if (attempt == attempt_ && state_ == SocketState::Connected) Receive();
}

void PosixSocket::Receive() {
  char bytes[64 * 1024];
  const ssize_t count = recv(socket_, bytes, sizeof bytes, 0);
  if (count > 0) {
    received_.append(bytes, static_cast<size_t>(count));
    if (dataArrival) dataArrival();
  } else if (count == 0) {
    End(SocketState::PeerClosing);
  } else if (errno != EAGAIN) {
    End(SocketState::Error);
  }
}

void PosixSocket::SendQueued() {
  const ssize_t count = send(socket_, queued_.data(), queued_.size(), MSG_NOSIGNAL);
  if (count < 0) {
    if (errno != EAGAIN) End(SocketState::Error);
    return;
  }
  queued_.erase(0, static_cast<size_t>(count));
  WatchTransfer();
  if (queued_.empty() && sendComplete) sendComplete();
}

}  // namespace tagrix
