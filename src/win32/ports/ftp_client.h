// An FTP client over Windows's Internet library.
#ifndef TAGRIX_WIN32_PORTS_FTP_CLIENT_H
#define TAGRIX_WIN32_PORTS_FTP_CLIENT_H

#include <memory>

#include "platform/ftp_client.h"
#include "win32/ports/message_window.h"

namespace tagrix {

// Each transfer has a thread of its own, which the library may hold up for as long as it likes: a transfer that shows
// no sign of life for a while is given up, and what Close has ended can neither be heard nor write any more.
class WinFtpClient : public FtpClient {
 public:
  explicit WinFtpClient(int patienceSeconds = 30);
  ~WinFtpClient() override;

  void Download(const FtpRequest& request) override;
  void Close() override;
  bool InternetConnected() override;

 private:
  class Transfer;

  void Handle(UINT message, WPARAM w);
  void End(bool complete);
  UINT Message() const { return WM_APP + number_ % 0x1000; }

  const ULONGLONG patience_;  // milliseconds
  MessageWindow window_;
  std::shared_ptr<Transfer> transfer_;
  unsigned number_ = 0;  // of the transfer; messages of earlier ones are ignored
  ULONGLONG lastSign_ = 0;
};

}  // namespace tagrix

#endif
