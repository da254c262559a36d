// Port to one TCP client connection that reports by events.
#ifndef TAGRIX_PLATFORM_TCP_SOCKET_H
#define TAGRIX_PLATFORM_TCP_SOCKET_H

#include <functional>
#include <string>
#include <string_view>

namespace tagrix {

enum class SocketState {
  Closed = 0,
  ConnectionPending = 3,
  ResolvingHost = 4,
  HostResolved = 5,
  Connecting = 6,
  Connected = 7,
  PeerClosing = 8,  // the server has closed and everything it sent has been announced
  Error = 9,
};

// State changes and events happen only while the event loop runs (EventLoop::DoEvents), and EventLoop::Wait returns as
// soon as one is due. Nothing throws: what fails ends in SocketState::Error. Closed by the destructor.
class TcpSocket {
 public:
  virtual ~TcpSocket() = default;
  virtual SocketState State() const = 0;
  // Begins to connect; the state goes through ResolvingHost and Connecting to Connected or Error. Never blocks.
  virtual void Connect(const std::wstring& host, int port) = 0;
  virtual void Close() = 0;
  // Queues the bytes; sendComplete is announced when all of them have been handed to the system.
  virtual void SendData(std::string_view bytes) = 0;
  // Takes what has arrived and not been taken yet.
  virtual std::string GetData() = 0;

  std::function<void()> dataArrival;  // called in state Connected, before PeerClosing is entered
  std::function<void()> sendComplete;
};

}  // namespace tagrix

#endif
