// A TCP client over POSIX sockets and the event loop that drives it, for tests against real servers.
#ifndef TAGRIX_TESTS_FAKES_POSIX_SOCKET_H
#define TAGRIX_TESTS_FAKES_POSIX_SOCKET_H

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_loop.h"
#include "platform/tcp_socket.h"

namespace tagrix {

// Waits with poll().
class PosixEvents : public EventLoop {
 public:
  void DoEvents() override;
  void Wait(int milliseconds) override;
  std::uint64_t TickCount() override;

  void Post(std::function<void()> event) { posted_.push_back(std::move(event)); }
  // Calls `ready` in DoEvents whenever some of `events` (POLLIN, POLLOUT) has come for the descriptor.
  void Watch(int descriptor, short events, std::function<void()> ready);
  void Unwatch(int descriptor) { watched_.erase(descriptor); }

 private:
  struct Watched {
    short events;
    std::function<void()> ready;
  };
  // The descriptors for which something has come.
  std::vector<int> Poll(int milliseconds) const;

  std::deque<std::function<void()>> posted_;
  std::map<int, Watched> watched_;
};

class PosixSocket : public TcpSocket {
 public:
  explicit PosixSocket(PosixEvents& events) : events_(events) {}
  ~PosixSocket() override { PosixSocket::Close(); }
  PosixSocket(const PosixSocket&) = delete;
  PosixSocket& operator=(const PosixSocket&) = delete;

  SocketState State() const override { return state_; }
  void Connect(const std::wstring& host, int port) override;
  void Close() override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override { return std::exchange(received_, {}); }

 private:
  using Address = std::vector<char>;  // a sockaddr of any family

  void LookUp(const std::string& host, int port);
  void ConnectNext();
  void Connected();
  void Transfer();  // what can be received and sent now
  void Receive();
  void SendQueued();
  void WatchTransfer();
  void End(SocketState state);

  PosixEvents& events_;
  SocketState state_ = SocketState::Closed;
  unsigned attempt_ = 0;  // events of earlier attempts to connect are dropped
  std::deque<Address> addresses_;
  int socket_ = -1;
  std::string received_, queued_;
};

}  // namespace tagrix

#endif
