// Port to a client that fetches one web resource at a time and reports by an event.
#ifndef TAGRIX_PLATFORM_SECURE_HTTP_H
#define TAGRIX_PLATFORM_SECURE_HTTP_H

#include <cstddef>
#include <functional>
#include <string>

namespace tagrix {

struct HttpsRequest {
  std::wstring url;  // "https://..."; also "http://...", for a server of one's own
  std::wstring userAgent;
  std::wstring proxy;  // host; empty: what the system is set to
  int proxyPort = 80;
  std::size_t limit = 64 << 20;  // bytes of the longest body that is taken
};

struct HttpsAnswer {
  // NotSecure: the server has no certificate for its name that the system trusts, or no TLS 1.2.
  enum class End { Complete, NotReached, NotSecure, TooLong };
  End end = End::NotReached;  // the rest is for Complete only
  int status = 0;             // 200, 404, ...
  int retryAfter = 0;         // seconds; 0: the server doesn't say
  std::string body = {};
};

// Over TLS 1.2 or later, and only with a server whose certificate the system trusts. Redirects are followed, but never
// from "https" to "http". Events happen only while the event loop runs (EventLoop::DoEvents). Nothing throws or blocks.
// Closed by the destructor.
class HttpsClient {
 public:
  virtual ~HttpsClient() = default;
  // Begins a GET, which ends one that runs; `ended` is announced exactly once unless Close or another Get comes first.
  virtual void Get(const HttpsRequest& request) = 0;
  // Ends what runs; no event follows.
  virtual void Close() = 0;

  std::function<void(HttpsAnswer answer)> ended;
};

}  // namespace tagrix

#endif
