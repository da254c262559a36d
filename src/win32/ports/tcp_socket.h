// A TCP client connection over Windows's sockets, driven by window messages.
#ifndef TAGRIX_WIN32_PORTS_TCP_SOCKET_H
#define TAGRIX_WIN32_PORTS_TCP_SOCKET_H

#include <winsock2.h>
// Needs winsock2.h before it.
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/tcp_socket.h"
#include "win32/ports/message_window.h"
#include "win32/ports/unique.h"

namespace tagrix {

struct SocketTraits {
  using Handle = SOCKET;
  static Handle None() { return INVALID_SOCKET; }
  static void Close(Handle handle) { closesocket(handle); }
};

// Names are looked up by a thread of their own; the addresses found are tried in turn.
class WinTcpSocket : public TcpSocket {
 public:
  WinTcpSocket();
  ~WinTcpSocket() override;

  SocketState State() const override { return state_; }
  void Connect(const std::wstring& host, int port) override;
  void Close() override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override;

 private:
  using Address = std::vector<char>;  // a sockaddr of any family
  using Addresses = std::vector<Address>;
  static Addresses LookUp(const std::wstring& host, int port, int flags);

  // The number of the messages of the current attempt to connect; those of earlier ones are ignored.
  UINT Message() const { return WM_APP + attempt_ % 0x1000; }
  void Post(int event) { PostMessageW(window_.Handle(), Message(), 0, event); }
  void Handle(UINT message, LPARAM l);
  void ConnectNext();
  bool Receive();
  void SendQueued();
  void LookAgain();
  void EndOfStream(bool reset);

  MessageWindow window_;
  SocketState state_ = SocketState::Closed;
  unsigned attempt_ = 0;
  std::shared_ptr<Addresses> addresses_;  // written by the thread that looks them up, until it posts that it has
  size_t next_ = 0;                       // the address to try next
  Unique<SocketTraits> socket_;
  std::string received_, queued_;
  size_t sent_ = 0;  // of the queued bytes
};

}  // namespace tagrix

#endif
