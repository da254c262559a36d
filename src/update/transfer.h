// One running download of the FTP client, ended with its owner.
#ifndef TAGRIX_UPDATE_TRANSFER_H
#define TAGRIX_UPDATE_TRANSFER_H

#include <functional>
#include <utility>

#include "platform/ftp_client.h"

namespace tagrix {

// Begins a download. One that is still running is ended first, and its owner told that it failed.
class Transfer {
 public:
  Transfer(FtpClient& ftp, const FtpRequest& request, std::function<void(bool complete)> ended,
           std::function<void(std::uint64_t done, std::uint64_t total)> progress = {})
      : ftp_(ftp) {
    ftp_.Close();
    if (const auto told = std::exchange(ftp_.ended, nullptr)) told(false);
    ftp_.ended = std::move(ended);
    ftp_.progress = std::move(progress);
    ftp_.Download(request);
  }
  ~Transfer() {
    ftp_.Close();
    ftp_.ended = nullptr;
    ftp_.progress = nullptr;
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

 private:
  FtpClient& ftp_;
};

}  // namespace tagrix

#endif
