// A TCP client over a POSIX socket and the event loop that drives it, for real servers on the loopback.
#ifndef TAGRIX_BENCH_POSIX_SOCKET_H
#define TAGRIX_BENCH_POSIX_SOCKET_H

#include <poll.h>

#include <functional>
#include <string>
#include <utility>

#include "platform/event_loop.h"
#include "platform/tcp_socket.h"

namespace tagrix {

// Waits with poll() for what one descriptor is watched for.
class PosixEvents : public EventLoop {
 public:
  void DoEvents() override {
    if (poll(&watched, 1, 0) > 0) ready();
  }
  void Wait(int milliseconds) override { poll(&watched, 1, milliseconds); }
  std::uint64_t TickCount() override;

  pollfd watched{-1, 0, 0};
  std::function<void()> ready;
};

// The only socket of its event loop. Hosts are IPv4 addresses.
class PosixSocket : public TcpSocket {
 public:
  explicit PosixSocket(PosixEvents& events) : events_(events) {}
  ~PosixSocket() override { End(SocketState::Closed); }
  PosixSocket(const PosixSocket&) = delete;
  PosixSocket& operator=(const PosixSocket&) = delete;

  SocketState State() const override { return state_; }
  void Connect(const std::wstring& host, int port) override;
  void Close() override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override { return std::exchange(received_, {}); }

 private:
  void Ready();
  void Receive();
  void SendQueued();
  void End(SocketState state);

  PosixEvents& events_;
  SocketState state_ = SocketState::Closed;
  std::string received_, queued_;
};

}  // namespace tagrix

#endif
