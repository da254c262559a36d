// The ports that share contracts on this system, each with what a test does to it from outside.
#ifndef TAGRIX_TESTS_CONTRACT_CASES_H
#define TAGRIX_TESTS_CONTRACT_CASES_H

#include <gtest/gtest.h>

#include <string>

#ifdef _WIN32
#include <optional>

#include "contract/win32_loopback.h"
#include "win32/clock.h"
#include "win32/code_page.h"
#include "win32/event_loop.h"
#include "win32/files.h"
#include "win32/ftp_client.h"
#include "win32/registry.h"
#else
#include "fakes/fakes.h"
#endif

namespace tagrix {

#ifdef _WIN32

using RegistryCase = WinRegistry;
using CodePageCase = WinCodePage;
using ClockCase = WinClock;
// Of the current user.
void DeleteRegistryKey(const std::wstring& key);

struct FilesCase {
  FilesCase();  // empties the folder
  ~FilesCase();
  FilesCase(const FilesCase&) = delete;
  FilesCase& operator=(const FilesCase&) = delete;
  // A Wine that lets read-only files be written and doesn't change the letter case of names.
  static bool Lenient();
  static void SetReadOnly(const std::wstring& path);
  // False when this system makes no links.
  bool AddLink(const std::wstring& path);

  WinFiles files;
  std::wstring folder;
};

// The server is a real one, which the environment names.
struct FtpCase : FilesCase {
  FtpCase();
  static bool HasServer();
  static void Offer(const std::string& path, const std::string& content);

  WinEventLoop events;
  WinFtpClient ftp{2};
  FtpRequest request;
};

// A real server answers a request (ended by an empty line); with `close` it closes afterwards. `Serve` says on which
// port.
struct SocketCase {
  int Serve(const std::string& answer, bool close);
  static int Refuse() { return RefusedPort(); }

  WinEventLoop events;
  std::optional<LoopbackServer> server;  // outlives the socket, whose end it waits for
  WinTcpSocket socket;
};

#else

using RegistryCase = FakeRegistry;
using CodePageCase = FakeCodePage;
using ClockCase = FakeClock;
inline void DeleteRegistryKey(const std::wstring&) {}

struct FilesCase {
  FilesCase() { files.AddFolder(folder); }
  static bool Lenient() { return false; }
  void SetReadOnly(const std::wstring& path) { files.SetReadOnly(path); }
  bool AddLink(const std::wstring& path) { return files.AddLink(path), true; }

  FakeFiles files;
  std::wstring folder = L"C:\\Work\\Folder";
};

struct FtpCase : FilesCase {
  static bool HasServer() { return true; }
  void Offer(const std::string& path, const std::string& content) { ftp.remote[Widen(path)] = content; }

  FakeEvents events;
  FakeFtp ftp{events, files};
  FtpRequest request;
};

struct SocketCase {
  int Serve(const std::string& answer, bool close) {
    socket.serve = [answer](const std::string&) { return answer; };
    socket.closeAfterAnswer = close;
    return 80;
  }
  int Refuse() {
    socket.serve = nullptr;
    return 80;
  }

  FakeEvents events;
  FakeSocket socket{events};
};

#endif

inline std::string Content(Files& files, const std::wstring& path) {
  const auto file = files.OpenForReading(path);
  std::string content(static_cast<size_t>(file->Size()) + 1, '\0');
  content.resize(file->Read(0, content.data(), content.size()));
  return content;
}

}  // namespace tagrix

#endif
