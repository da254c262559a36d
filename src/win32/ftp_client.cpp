#include "win32/ftp_client.h"

// Needs windows.h before it.
#include <wininet.h>

#include <atomic>
#include <cwchar>
#include <iterator>
#include <mutex>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "core/publisher.h"
#include "win32/lazy_library.h"
#include "win32/unique.h"

namespace tagrix {
namespace {

enum Sign : WPARAM { kAlive, kComplete, kFailed };

constexpr DWORD kPiece = 32 * 1024;  // bytes read at a time

// Whether an open file goes when it is closed, even by the end of the process.
void GoesWhenClosed(HANDLE file, bool goes) {
  FILE_DISPOSITION_INFO disposition{static_cast<BOOLEAN>(goes)};
  SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition);
}

}  // namespace

struct WinFtpClient::Library {
  LazyLibrary library{L"wininet.dll"};
  decltype(InternetOpenW)* open = library.Get<decltype(InternetOpenW)>("InternetOpenW");
  decltype(InternetConnectW)* connect = library.Get<decltype(InternetConnectW)>("InternetConnectW");
  decltype(FtpSetCurrentDirectoryW)* setFolder =
      library.Get<decltype(FtpSetCurrentDirectoryW)>("FtpSetCurrentDirectoryW");
  decltype(FtpOpenFileW)* openFile = library.Get<decltype(FtpOpenFileW)>("FtpOpenFileW");
  decltype(FtpGetFileSize)* fileSize = library.Get<decltype(FtpGetFileSize)>("FtpGetFileSize");
  decltype(FtpCommandW)* command = library.Get<decltype(FtpCommandW)>("FtpCommandW");
  decltype(InternetGetLastResponseInfoW)* lastResponse =
      library.Get<decltype(InternetGetLastResponseInfoW)>("InternetGetLastResponseInfoW");
  decltype(InternetReadFile)* read = library.Get<decltype(InternetReadFile)>("InternetReadFile");
  decltype(InternetCloseHandle)* close = library.Get<decltype(InternetCloseHandle)>("InternetCloseHandle");
  decltype(InternetGetConnectedState)* connected =
      library.Get<decltype(InternetGetConnectedState)>("InternetGetConnectedState");
};

// One download, shared by the thread that runs it and the client that may end it.
class WinFtpClient::Transfer {
 public:
  Transfer(std::shared_ptr<Library> library, FtpRequest request, HWND window, UINT message)
      : library_(std::move(library)), request_(std::move(request)), window_(window), message_(message) {}

  // In the thread: downloads and posts how it ended.
  void Run() {
    const bool complete = Fetch();
    {
      const std::lock_guard lock(mutex_);
      if (complete && file_) GoesWhenClosed(file_.Get(), false);
      if (aborted_) return;
    }
    Abort();
    PostMessageW(window_, message_, complete ? kComplete : kFailed, 0);
  }

  // Lets go of the local file, which is removed unless it is whole, and of the server.
  void Abort() {
    HINTERNET session = nullptr;
    {
      const std::lock_guard lock(mutex_);
      aborted_ = true;
      file_.Reset();
      session = std::exchange(session_, nullptr);
    }
    if (session != nullptr) library_->close(session);  // and all that was opened in it
  }

  // In the window's thread: what has been done since the last time.
  std::pair<std::uint64_t, std::uint64_t> TakeProgress() {
    announced_ = false;
    return {done_, total_};
  }

 private:
  bool Fetch() {
    HINTERNET session = library_->open(publisher::kProduct, INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
    if (session == nullptr || !Keep(session)) return false;
    HINTERNET server = library_->connect(session, request_.host.c_str(), static_cast<INTERNET_PORT>(request_.port),
                                         request_.user.c_str(), request_.password.c_str(), INTERNET_SERVICE_FTP,
                                         INTERNET_FLAG_PASSIVE, 0);
    if (server == nullptr) return false;
    ShowLife();
    if (!request_.remoteFolder.empty() && !library_->setFolder(server, request_.remoteFolder.c_str())) return false;
    ShowLife();
    total_ = AnnouncedSize(server);
    HINTERNET remote = library_->openFile(server, request_.remoteFile.c_str(), GENERIC_READ,
                                          FTP_TRANSFER_TYPE_BINARY | INTERNET_FLAG_RELOAD, 0);
    if (remote == nullptr) return false;
    DWORD high = 0;
    const DWORD low = library_->fileSize(remote, &high);
    if (low != INVALID_FILE_SIZE && (low | high) != 0) total_ = static_cast<std::uint64_t>(high) << 32 | low;
    ShowLife();
    return CreateLocal() && Copy(remote) && (total_ == 0 || done_ == total_);
  }

  // Asks the server itself: what FtpGetFileSize tells rests on the wording of a later answer. 0 when it doesn't say.
  std::uint64_t AnnouncedSize(HINTERNET server) {
    const std::wstring size = L"SIZE " + request_.remoteFile;
    if (!library_->command(server, FALSE, FTP_TRANSFER_TYPE_BINARY, L"TYPE I", 0, nullptr) ||
        !library_->command(server, FALSE, FTP_TRANSFER_TYPE_BINARY, size.c_str(), 0, nullptr)) {
      return 0;
    }
    wchar_t answer[256] = L"";
    DWORD error = 0, length = static_cast<DWORD>(std::size(answer));
    constexpr std::wstring_view kSize = L"213 ";
    if (!library_->lastResponse(&error, answer, &length) || !std::wstring_view(answer).starts_with(kSize)) return 0;
    return std::wcstoull(answer + kSize.size(), nullptr, 10);
  }

  // Makes the session one that Abort closes; false when it has been called already.
  bool Keep(HINTERNET session) {
    const std::lock_guard lock(mutex_);
    if (aborted_) {
      library_->close(session);
      return false;
    }
    session_ = session;
    return true;
  }

  bool CreateLocal() {
    const std::lock_guard lock(mutex_);
    if (aborted_) return false;
    file_.Reset(CreateFileW(request_.localPath.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file_) return false;
    GoesWhenClosed(file_.Get(), true);
    return true;
  }

  bool Copy(HINTERNET remote) {
    std::vector<char> bytes(kPiece);
    DWORD count = 0;
    while (library_->read(remote, bytes.data(), kPiece, &count)) {
      if (count == 0) return true;
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

  const std::shared_ptr<Library> library_;
  const FtpRequest request_;
  const HWND window_;
  const UINT message_;

  std::mutex mutex_;  // guards the next three
  UniqueFile file_;
  HINTERNET session_ = nullptr;
  bool aborted_ = false;

  std::atomic<std::uint64_t> done_ = 0, total_ = 0;
  std::atomic<bool> announced_ = false;  // a sign of life is on its way
};

WinFtpClient::WinFtpClient(int patienceSeconds)
    : patience_(static_cast<ULONGLONG>(patienceSeconds) * 1000),
      window_([this](UINT message, WPARAM w, LPARAM) { Handle(message, w); }) {}

WinFtpClient::~WinFtpClient() { WinFtpClient::Close(); }

const std::shared_ptr<WinFtpClient::Library>& WinFtpClient::Loaded() {
  if (!library_) library_ = std::make_shared<Library>();
  return library_;
}

void WinFtpClient::Download(const FtpRequest& request) {
  Close();
  transfer_ = std::make_shared<Transfer>(Loaded(), request, window_.Handle(), Message());
  lastSign_ = GetTickCount64();
  SetTimer(window_.Handle(), 1, 500, nullptr);
  std::thread([transfer = transfer_] { transfer->Run(); }).detach();
}

void WinFtpClient::Close() {
  if (!transfer_) return;
  ++number_;
  KillTimer(window_.Handle(), 1);
  std::exchange(transfer_, nullptr)->Abort();
}

bool WinFtpClient::InternetConnected() {
  DWORD flags = 0;
  return Loaded()->connected(&flags, 0) != FALSE;
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
    End(w == kComplete);
  }
}

void WinFtpClient::End(bool complete) {
  Close();
  if (ended) ended(complete);
}

}  // namespace tagrix
