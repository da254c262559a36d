// Port to an FTP client that fetches one file at a time and reports by events.
#ifndef TAGRIX_PLATFORM_FTP_CLIENT_H
#define TAGRIX_PLATFORM_FTP_CLIENT_H

#include <cstdint>
#include <functional>
#include <string>

namespace tagrix {

struct FtpRequest {
  std::wstring user, password, host;
  int port = 21;
  std::wstring remoteFolder, remoteFile;
  std::wstring localPath;
  std::uint64_t limit = 0;  // bytes; a download fails as soon as more, or more than announced, arrive; 0: none
};

// Passive mode, binary. Events happen only while the event loop runs (EventLoop::DoEvents). Nothing throws. Closed by
// the destructor.
class FtpClient {
 public:
  virtual ~FtpClient() = default;
  // Begins a download and returns at once; `ended` is announced exactly once unless Close comes first.
  virtual void Download(const FtpRequest& request) = 0;
  // Ends what runs at once, be it connecting, waiting or receiving; no event follows. A part of a file that it has
  // written is removed.
  virtual void Close() = 0;
  // Whether the system believes to be connected to the Internet.
  virtual bool InternetConnected() = 0;

  std::function<void(std::uint64_t done, std::uint64_t total)> progress;  // bytes; total 0: unknown
  // Whether the whole file has arrived (as many bytes as the server had announced, if it did).
  std::function<void(bool complete)> ended;
};

}  // namespace tagrix

#endif
