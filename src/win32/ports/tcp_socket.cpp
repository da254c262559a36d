#include "win32/ports/tcp_socket.h"

#include <ws2tcpip.h>

#include "win32/ports/background.h"

namespace tagrix {
namespace {

// What is posted beside the events of Windows's sockets.
constexpr int kLookedUp = 0x4000, kSend = 0x8000;

constexpr size_t kPiece = 65536;  // bytes taken at a time

constexpr UINT kLookAgain = 1000;  // milliseconds

// Begins the use of Windows's sockets, which ends with the process: another thread that ends its own use while this one
// begins would close the sockets of both under Wine, which counts without a lock.
void UseSockets() {
  static const int status = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data);
  }();
  static_cast<void>(status);
}

}  // namespace

WinTcpSocket::WinTcpSocket()
    : window_([this](UINT message, WPARAM, LPARAM l) { message == WM_TIMER ? LookAgain() : Handle(message, l); }) {}

WinTcpSocket::~WinTcpSocket() { WinTcpSocket::Close(); }

WinTcpSocket::Addresses WinTcpSocket::LookUp(const std::wstring& host, int port, int flags) {
  ADDRINFOW hints{};
  hints.ai_flags = flags;
  hints.ai_socktype = SOCK_STREAM;
  ADDRINFOW* found = nullptr;
  Addresses addresses;
  if (host.empty() || GetAddrInfoW(host.c_str(), std::to_wstring(port).c_str(), &hints, &found) != 0) return addresses;
  for (const ADDRINFOW* one = found; one != nullptr; one = one->ai_next) {
    const auto bytes = reinterpret_cast<const char*>(one->ai_addr);
    addresses.emplace_back(bytes, bytes + one->ai_addrlen);
  }
  FreeAddrInfoW(found);
  return addresses;
}

void WinTcpSocket::Connect(const std::wstring& host, int port) {
  Close();
  UseSockets();
  state_ = SocketState::ResolvingHost;
  next_ = 0;
  addresses_ = std::make_shared<Addresses>(LookUp(host, port, AI_NUMERICHOST));
  if (!addresses_->empty() || host.empty()) return Post(kLookedUp);
  // The thread may outlive this object; its message then goes nowhere.
  RunInBackground([addresses = addresses_, host, port, window = window_.Handle(), message = Message()] {
    *addresses = LookUp(host, port, 0);
    PostMessageW(window, message, 0, kLookedUp);
  });
}

void WinTcpSocket::Close() {
  ++attempt_;
  if (socket_) KillTimer(window_.Handle(), 1);
  socket_.Reset();
  addresses_.reset();
  received_.clear();
  queued_.clear();
  sent_ = 0;
  state_ = SocketState::Closed;
}

void WinTcpSocket::SendData(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  queued_ += bytes;
  Post(kSend);
}

std::string WinTcpSocket::GetData() { return std::exchange(received_, {}); }

void WinTcpSocket::Handle(UINT message, LPARAM l) {
  if (message != Message() || state_ == SocketState::Closed) return;
  const bool failed = WSAGETSELECTERROR(l) != 0;
  switch (WSAGETSELECTEVENT(l)) {
    case kLookedUp:
      ConnectNext();
      break;
    case FD_CONNECT:
      if (failed) {
        ConnectNext();
      } else {
        state_ = SocketState::Connected;
        SetTimer(window_.Handle(), 1, kLookAgain, nullptr);
      }
      break;
    case FD_READ:
      Receive();
      break;
    case FD_WRITE:
    case kSend:
      SendQueued();
      break;
    case FD_CLOSE:
      EndOfStream(failed);
      break;
  }
}

void WinTcpSocket::ConnectNext() {
  while (next_ < addresses_->size()) {
    const Address& address = (*addresses_)[next_++];
    const auto target = reinterpret_cast<const sockaddr*>(address.data());
    ++attempt_;
    state_ = SocketState::Connecting;
    socket_.Reset(socket(target->sa_family, SOCK_STREAM, IPPROTO_TCP));
    if (socket_ &&
        WSAAsyncSelect(socket_.Get(), window_.Handle(), Message(), FD_CONNECT | FD_READ | FD_WRITE | FD_CLOSE) == 0 &&
        (connect(socket_.Get(), target, static_cast<int>(address.size())) == 0 ||
         WSAGetLastError() == WSAEWOULDBLOCK)) {
      return;
    }
  }
  socket_.Reset();
  state_ = SocketState::Error;
}

// Takes one piece of what has arrived and announces it; false when nothing was there.
bool WinTcpSocket::Receive() {
  if (state_ != SocketState::Connected) return false;
  const size_t before = received_.size();
  received_.resize(before + kPiece);
  const int count = recv(socket_.Get(), received_.data() + before, static_cast<int>(kPiece), 0);
  received_.resize(before + static_cast<size_t>(count > 0 ? count : 0));
  if (count <= 0) return false;
  if (dataArrival) dataArrival();
  return true;
}

void WinTcpSocket::SendQueued() {
  if (state_ != SocketState::Connected || queued_.empty()) return;
  while (sent_ < queued_.size()) {
    const auto left = static_cast<int>(std::min(queued_.size() - sent_, kPiece));
    const int count = send(socket_.Get(), queued_.data() + sent_, left, 0);
    if (count < 0) {
      if (WSAGetLastError() != WSAEWOULDBLOCK) state_ = SocketState::Error;
      return;  // FD_WRITE comes when there is room again
    }
    sent_ += static_cast<size_t>(count);
  }
  queued_.clear();
  sent_ = 0;
  if (sendComplete) sendComplete();
}

// Finds what no notice has told: under Wine, on a busy machine, some may not come.
void WinTcpSocket::LookAgain() {
  SendQueued();
  if (state_ != SocketState::Connected) return;
  char next = 0;
  const int count = recv(socket_.Get(), &next, 1, MSG_PEEK);
  if (count > 0) {
    Receive();
  } else if (count == 0 || WSAGetLastError() != WSAEWOULDBLOCK) {
    EndOfStream(count < 0);
  }
}

void WinTcpSocket::EndOfStream(bool reset) {
  if (state_ != SocketState::Connected) return;
  // What arrived before the end may not have been announced yet. A listener may close the connection meanwhile.
  const unsigned attempt = attempt_;
  while (attempt == attempt_ && Receive()) continue;
  if (attempt == attempt_) state_ = reset ? SocketState::Error : SocketState::PeerClosing;
}

}  // namespace tagrix
