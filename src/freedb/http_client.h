// The program's HTTP client: one GET at a time over one socket, and three helpers for line-based servers.
#ifndef TAGRIX_FREEDB_HTTP_CLIENT_H
#define TAGRIX_FREEDB_HTTP_CLIENT_H

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/progress.h"
#include "core/settings.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/tcp_socket.h"

namespace tagrix {

// Every wait lets events run and ends early when the user cancels. Network failures yield empty results and are shown
// by the caller.
class HttpClient {
 public:
  struct Ports {
    TcpSocket& socket;
    EventLoop& events;
    CodePage& codePage;
    Settings& settings;
  };
  // Listens to the socket for as long as it lives.
  explicit HttpClient(const Ports& ports);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  // Fetches an address through the proxy of the settings, if any, and follows redirects. Returns the whole answer,
  // status line and headers included, as it was received; empty on every failure, and when it is longer than 256 MiB.
  // `url` ends as the address asked last. `refusal`, if asked for, gets the answer that tells an error or leads
  // nowhere, and stays as it is where the server was not reached. Throws Failure when the port in the settings is above
  // 32767.
  std::string GetWebSite(std::wstring& url, Progress& progress, std::string* refusal = nullptr);

  // Drops the connection.
  void ErrorOccured();

  // Waits up to 5 s for a line that begins with one of the prefixes (separated by CR LF). Hands over what has been
  // received, if asked for, and forgets it.
  bool WaitFor(std::string_view expected, Progress& progress, std::string* reply = nullptr);
  // Sends a line; true when it was handed to the system within 5 s.
  bool Send(std::string_view text, Progress& progress);

  // Starts the count that the status line shows from 0.
  void ResetReceivedCount() { receivedCount_ = 0; }

 private:
  void DataArrival();
  // Asks for one address and collects the answer; false when there is none.
  bool Fetch(std::wstring& url, Progress& progress);
  void Connect(const std::wstring& host, const Progress& progress);
  // Whether a wait for a line that began then has timed out or was cancelled.
  bool GaveUp(std::uint64_t start, const Progress& progress) const;
  bool Connected() const { return ports_.socket.State() == SocketState::Connected; }

  const Ports ports_;
  Progress* progress_ = nullptr;  // of the page that is being fetched
  std::string received_;
  std::int64_t receivedCount_ = 0;
  bool sendComplete_ = false;
};

}  // namespace tagrix

#endif
