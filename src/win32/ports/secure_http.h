// An HTTPS client over Windows's own.
#ifndef TAGRIX_WIN32_PORTS_SECURE_HTTP_H
#define TAGRIX_WIN32_PORTS_SECURE_HTTP_H

#include <cstdint>

#include "platform/secure_http.h"
#include "win32/ports/message_window.h"
#include "win32/ports/unique.h"

namespace tagrix {

// The library works in threads of its own, which post to a window what they have done. A request that shows no sign of
// life for a while is given up.
class WinHttpsClient : public HttpsClient {
 public:
  explicit WinHttpsClient(int patienceSeconds = 30);
  ~WinHttpsClient() override;

  void Get(const HttpsRequest& request) override;
  void Close() override;

 private:
  struct HandleTraits {
    using Handle = void*;
    static Handle None() { return nullptr; }
    static void Close(Handle handle);
  };
  struct Desk;

  bool Send(const HttpsRequest& request);
  void Handle(UINT message, WPARAM status, LPARAM value);
  void TakeHeaders();
  void TakePiece(std::size_t size);
  void ReadOn();
  void End(HttpsAnswer::End end);
  // A number in the answer's head; 0 when it isn't there.
  std::uint64_t Number(DWORD header) const;
  UINT Message() const { return WM_APP + number_ % 0x1000; }

  const ULONGLONG patience_;  // milliseconds
  MessageWindow window_;
  Unique<HandleTraits> session_, connection_, request_;
  Desk* desk_ = nullptr;  // of the request; owned by the library
  unsigned number_ = 0;   // of the request; messages of earlier ones are ignored
  bool running_ = false;
  HttpsAnswer answer_;
  std::size_t limit_ = 0;
  std::uint64_t announced_ = 0;  // bytes of the body; 0: the server doesn't say
  ULONGLONG lastSign_ = 0;
};

}  // namespace tagrix

#endif
