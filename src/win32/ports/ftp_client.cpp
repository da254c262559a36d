#include "win32/ports/ftp_client.h"

// Needs windows.h before it.
#include <wininet.h>

#include <atomic>
#include <cwchar>
#include <exception>
#include <iterator>
#include <mutex>
#include <string_view>
#include <utility>
#include <vector>

#include "base/file_names.h"
#include "base/publisher.h"
#include "win32/ports/background.h"
#include "win32/ports/native_path.h"
#include "win32/ports/unique.h"

namespace tagrix {
namespace {

enum Sign : WPARAM { kAlive, kComplete, kFailed };

constexpr DWORD kPiece = 32 * 1024;  // bytes read at a time

// Whether an open file goes when it is closed, even by the end of the process.
void GoesWhenClosed(HANDLE file, bool goes) {
  FILE_DISPOSITION_INFO disposition{static_cast<BOOLEAN>(goes)};
  SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition);
}

struct InternetTraits {
  using Handle = HINTERNET;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { InternetCloseHandle(handle); }
};
using UniqueInternet = Unique<InternetTraits>;

}  // namespace

// One download, shared by the thread that runs it and the client that may end it.
class WinFtpClient::Transfer {
 public:
  Transfer(FtpRequest request, HWND window, UINT message)
      : request_(std::move(request)), window_(window), message_(message) {}

  // In the thread: downloads and posts how it ended.
  void Run() {
    bool complete = false;
    try {
      complete = Fetch();
    } catch (const std::exception&) {  // no library, no memory
    }
    const std::lock_guard lock(mutex_);
    if (aborted_) return;
    if (!complete) file_.Reset();
    PostMessageW(window_, message_, complete ? kComplete : kFailed, 0);
  }

  // In the window's thread: the file is whole and stays. Not before, as an end that comes in between removes it.
  void Keep() {
    const std::lock_guard lock(mutex_);
    GoesWhenClosed(file_.Get(), false);
    file_.Reset();
  }

  // Lets go of the local file, which is removed unless it is whole. The thread itself lets go of the server when the
  // library returns: a handle that is closed while the thread still uses it may soon be another transfer's.
  void Abort() {
    const std::lock_guard lock(mutex_);
    aborted_ = true;
    file_.Reset();
  }

  // In the window's thread: what has been done since the last time.
  std::pair<std::uint64_t, std::uint64_t> TakeProgress() {
    announced_ = false;
    return {done_, total_};
  }

 private:
  bool Fetch() {
    const UniqueInternet session(InternetOpenW(publisher::kProduct, INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0));
    if (!session) return false;
    const UniqueInternet server(InternetConnectW(
        session.Get(), request_.host.c_str(), static_cast<INTERNET_PORT>(request_.port), request_.user.c_str(),
        request_.password.c_str(), INTERNET_SERVICE_FTP, INTERNET_FLAG_PASSIVE, 0));
    if (!server) return false;
    ShowLife();
    if (!request_.remoteFolder.empty() && !FtpSetCurrentDirectoryW(server.Get(), request_.remoteFolder.c_str()))
      return false;
    ShowLife();
    total_ = AnnouncedSize(server.Get());
    constexpr DWORD kNoCopies = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE;
    const UniqueInternet remote(
        FtpOpenFileW(server.Get(), request_.remoteFile.c_str(), GENERIC_READ, FTP_TRANSFER_TYPE_BINARY | kNoCopies, 0));
    if (!remote) return false;
    DWORD high = 0;
    const DWORD low = FtpGetFileSize(remote.Get(), &high);
    if (low != INVALID_FILE_SIZE && (low | high) != 0) total_ = static_cast<std::uint64_t>(high) << 32 | low;
    ShowLife();
    return CreateLocal() && Copy(remote.Get()) && (total_ == 0 || done_ == total_);
  }

  // Asks the server itself: what FtpGetFileSize tells rests on the wording of a later answer. 0 when it doesn't say.
  std::uint64_t AnnouncedSize(HINTERNET server) {
    const std::wstring size = L"SIZE " + request_.remoteFile;
    if (!FtpCommandW(server, FALSE, FTP_TRANSFER_TYPE_BINARY, L"TYPE I", 0, nullptr) ||
        !FtpCommandW(server, FALSE, FTP_TRANSFER_TYPE_BINARY, size.c_str(), 0, nullptr)) {
      return 0;
    }
    wchar_t answer[256] = L"";
    DWORD error = 0, length = static_cast<DWORD>(std::size(answer));
    constexpr std::wstring_view kSize = L"213 ";
    if (!InternetGetLastResponseInfoW(&error, answer, &length) || !std::wstring_view(answer).starts_with(kSize))
      return 0;
    return std::wcstoull(answer + kSize.size(), nullptr, 10);
  }

  bool CreateLocal() {
    const std::lock_guard lock(mutex_);
    if (aborted_ || !CanNameAFile(request_.localPath)) return false;
    file_.Reset(CreateFileW(NativePath(request_.localPath).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file_) return false;
    GoesWhenClosed(file_.Get(), true);
    return true;
  }

  bool Copy(HINTERNET remote) {
    std::vector<char> bytes(kPiece);
    DWORD count = 0;
    while (InternetReadFile(remote, bytes.data(), kPiece, &count)) {
      if (count == 0) return true;
      for (const std::uint64_t most : {request_.limit, total_.load()}) {
        if (most != 0 && count > most - done_) return false;
      }
      if (!Write(bytes.data(), count)) return false;
      done_ += count;
      ShowLife();
    }
    return false;
  }

  bool Write(const char* bytes, DWORD count) {
    const std::lock_guard lock(mutex_);
    DWORD written = 0;
    return file_ && WriteFile(file_.Get(), bytes, count, &written, nullptr) && written == count;
  }

  void ShowLife() {
    if (!announced_.exchange(true)) PostMessageW(window_, message_, kAlive, 0);
  }

  const FtpRequest request_;
  const HWND window_;
  const UINT message_;

  std::mutex mutex_;  // guards the next two
  UniqueFile file_;
  bool aborted_ = false;

  std::atomic<std::uint64_t> done_ = 0, total_ = 0;
  std::atomic<bool> announced_ = false;  // a sign of life is on its way
};

WinFtpClient::WinFtpClient(int patienceSeconds)
    : patience_(static_cast<ULONGLONG>(patienceSeconds) * 1000),
      window_([this](UINT message, WPARAM w, LPARAM) { Handle(message, w); }) {}

WinFtpClient::~WinFtpClient() { WinFtpClient::Close(); }

void WinFtpClient::Download(const FtpRequest& request) {
  Close();
  transfer_ = std::make_shared<Transfer>(request, window_.Handle(), Message());
  lastSign_ = GetTickCount64();
  SetTimer(window_.Handle(), 1, 500, nullptr);
  RunInBackground([transfer = transfer_] { transfer->Run(); });
}

void WinFtpClient::Close() {
  if (!transfer_) return;
  ++number_;
  KillTimer(window_.Handle(), 1);
  std::exchange(transfer_, nullptr)->Abort();
}

bool WinFtpClient::InternetConnected() {
  DWORD flags = 0;
  return InternetGetConnectedState(&flags, 0) != FALSE;
}

void WinFtpClient::Handle(UINT message, WPARAM w) {
  if (!transfer_) return;
  if (message == WM_TIMER) {
    if (GetTickCount64() - lastSign_ > patience_) End(false);
  } else if (message != Message()) {
    return;
  } else if (w == kAlive) {
    lastSign_ = GetTickCount64();
    const auto [done, total] = transfer_->TakeProgress();
    if (done > 0 && progress) progress(done, total);
  } else {
    if (w == kComplete) transfer_->Keep();
    End(w == kComplete);
  }
}

void WinFtpClient::End(bool complete) {
  Close();
  if (ended) ended(complete);
}

}  // namespace tagrix
