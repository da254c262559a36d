#include "bench/posix_socket.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

namespace tagrix {

std::uint64_t PosixEvents::TickCount() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void PosixSocket::Connect(const std::wstring& host, int port) {
  Close();
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(static_cast<std::uint16_t>(port));
  const bool address = inet_pton(AF_INET, std::string(host.begin(), host.end()).c_str(), &target.sin_addr) == 1;
  events_.watched = {socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0), POLLOUT, 0};
  events_.ready = [this] { Ready(); };
  state_ = SocketState::Connecting;
  const int result = connect(events_.watched.fd, reinterpret_cast<const sockaddr*>(&target), sizeof target);
  if (!address || (result < 0 && errno != EINPROGRESS)) End(SocketState::Error);
}

void PosixSocket::Close() {
  received_.clear();
  queued_.clear();
  End(SocketState::Closed);
}

void PosixSocket::End(SocketState state) {
  if (events_.watched.fd >= 0) close(events_.watched.fd);
  events_.watched.fd = -1;
  state_ = state;
}

void PosixSocket::SendData(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  queued_ += bytes;
  events_.watched.events = POLLIN | POLLOUT;
}

// Listeners may close the connection, or begin another.
void PosixSocket::Ready() {
  const int came = events_.watched.revents;
  if (state_ == SocketState::Connecting) {
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(events_.watched.fd, SOL_SOCKET, SO_ERROR, &error, &size);
    if (error != 0) return End(SocketState::Error);
    state_ = SocketState::Connected;
    events_.watched.events = POLLIN;
  } else if ((came & POLLOUT) != 0) {
    SendQueued();
  } else {
    Receive();
  }
}

void PosixSocket::Receive() {
  char bytes[64 * 1024];
  const ssize_t count = recv(events_.watched.fd, bytes, sizeof bytes, 0);
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
  const ssize_t count = send(events_.watched.fd, queued_.data(), queued_.size(), MSG_NOSIGNAL);
  if (count < 0) {
    if (errno != EAGAIN) End(SocketState::Error);
    return;
  }
  queued_.erase(0, static_cast<size_t>(count));
  if (!queued_.empty()) return;
  events_.watched.events = POLLIN;
  if (sendComplete) sendComplete();
}

}  // namespace tagrix
