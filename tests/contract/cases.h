// The ports that share contracts on this system, each with what a test does to it from outside.
#ifndef TAGRIX_TESTS_CONTRACT_CASES_H
#define TAGRIX_TESTS_CONTRACT_CASES_H

#include <gtest/gtest.h>

#include <string>

#include "platform/event_loop.h"
#include "storage/small_files.h"
#ifdef _WIN32
#include <windows.h>
// Needs windows.h before it.
#include <wincrypt.h>

#include "win32/ports/code_page.h"
#include "win32/ports/files.h"
#include "win32/ports/ftp_client.h"
#include "win32/ports/registry.h"
#include "win32/ports/secure_http.h"
#include "win32/ports/shell.h"
#include "win32/ports/tcp_socket.h"
#include "win32/windows/event_loop.h"
#else
#include "fakes/fakes.h"
#endif

namespace tagrix {

#ifdef _WIN32

using RegistryCase = WinRegistry;
using CodePageCase = WinCodePage;
// What with_servers.py tells in an environment variable, as a text and as a number.
std::string Place(const char* name);
inline int Port(const char* name) { return std::stoi(Place(name)); }
// Of the current user.
void DeleteRegistryKey(const std::wstring& key);

struct FilesCase {
  FilesCase();
  // A Wine that lets read-only files be written and doesn't change the letter case of names.
  static bool Lenient();
  static void SetReadOnly(const std::wstring& path);
  // False when this system makes no links.
  bool AddLink(const std::wstring& path);
  // Of some network share; empty when there is none.
  static std::wstring ShareRoot();

  WinFiles files;
  std::wstring folder;
};

// Whether such a window is there; closes it.
bool CloseTitled(const std::wstring& title);

struct ShellCase : FilesCase {
  static bool Opened(const std::wstring& name) { return CloseTitled(name + L" - Notepad"); }
  bool Shown() const { return CloseTitled(folder.substr(folder.rfind(L'\\') + 1)); }
  static std::wstring Copied();

  WinEventLoop events;
  WinShell shell;
};

// At the echoing port each request (up to an empty line) comes back; after one that begins with "close" the server
// closes the connection.
struct SocketCase {
  static int EchoingPort() { return Port("TAGRIX_ECHO_PORT"); }
  static int RefusingPort() { return Port("TAGRIX_REFUSED_PORT"); }

  WinEventLoop events;
  WinTcpSocket socket;
};

struct FtpCase : FilesCase {
  FtpCase();
  static void Offer(const std::string& path, const std::string& content);
  // From now on the server, the one that echoes, takes connections and says nothing.
  void Silence() { request.port = SocketCase::EchoingPort(); }

  WinEventLoop events;
  WinFtpClient ftp;
  FtpRequest request;
};

// The certificate of one of the servers (see tls_server.py) is trusted for as long as this lives.
struct HttpsCase {
  HttpsCase();
  ~HttpsCase();
  HttpsCase(const HttpsCase&) = delete;
  HttpsCase& operator=(const HttpsCase&) = delete;
  // The start of an address on the server whose port the environment variable names.
  static std::wstring Site(const char* variable, const wchar_t* host = L"https://localhost:") {
    return host + std::to_wstring(Port(variable));
  }
  static std::wstring Trusted() { return Site("TAGRIX_HTTPS_PORT"); }

  WinEventLoop events;
  WinHttpsClient https;

 private:
  HCERTSTORE store_;  // of the authorities that the current user trusts
  PCCERT_CONTEXT certificate_ = nullptr;
};

#else

using RegistryCase = FakeRegistry;
using CodePageCase = FakeCodePage;
inline void DeleteRegistryKey(const std::wstring&) {}

struct FilesCase {
  FilesCase() { files.AddFolder(folder); }
  static bool Lenient() { return false; }
  void SetReadOnly(const std::wstring& path) { files.SetReadOnly(path); }
  bool AddLink(const std::wstring& path) { return files.AddLink(path), true; }

  FakeFiles files;
  std::wstring folder = L"C:\\Work\\Folder";
};

struct ShellCase : FilesCase {
  bool Opened(const std::wstring& name) const { return shell.opened == Texts{folder + L"\\" + name}; }
  bool Shown() const { return shell.shown == shell.opened; }
  std::wstring Copied() const { return shell.copied; }

  FakeEvents events;
  FakeShell shell{files};
};

struct SocketCase {
  int EchoingPort() {
    socket.serve = [this](const std::string& request) {
      socket.closeAfterAnswer = request.starts_with("close");
      return request;
    };
    return 80;
  }
  int RefusingPort() {
    socket.serve = nullptr;
    return 81;
  }

  FakeEvents events;
  FakeSocket socket{events};
};

struct FtpCase : FilesCase {
  void Offer(const std::string& path, const std::string& content) { ftp.remote[Widen(path)] = content; }
  void Silence() { ftp.stall = true; }

  FakeEvents events;
  FakeFtp ftp{events, files};
  FtpRequest request;
};

struct HttpsCase {
  HttpsCase() {
    https.serve = [](const HttpsRequest& request) -> HttpsAnswer {
      constexpr auto kComplete = HttpsAnswer::End::Complete;
      const std::string path = FakeCodePage().ToBytes(request.url.substr(Trusted().size()));
      if (path == "/missing") return {kComplete, 404, 0, "nothing here"};
      if (path == "/busy") return {kComplete, 503, 3, "slow down"};
      if (path == "/long") return {kComplete, 200, 0, std::string(3'000'000, 'x')};
      return {kComplete, 200, 0, path + " for " + FakeCodePage().ToBytes(request.userAgent)};
    };
  }
  static std::wstring Trusted() { return L"https://localhost"; }

  FakeEvents events;
  FakeHttps https{events};
};

#endif

// Lets events run until the condition holds, at most for so long; returns whether it does. A wait of so many
// milliseconds ends with the next event.
template <typename Condition>
bool Until(EventLoop& events, Condition condition, std::uint64_t milliseconds, int wait = 100) {
  const auto start = events.TickCount();
  while (!condition()) {
    if (events.TickCount() - start >= milliseconds) return false;
    events.Wait(wait);
    events.DoEvents();
  }
  return true;
}

}  // namespace tagrix

#endif
