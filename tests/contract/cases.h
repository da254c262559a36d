// The ports that share contracts on this system, each with what a test does to it from outside.
#ifndef TAGRIX_TESTS_CONTRACT_CASES_H
#define TAGRIX_TESTS_CONTRACT_CASES_H

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "net/loopback_server.h"
#ifdef _WIN32
#include "win32/clock.h"
#include "win32/code_page.h"
#include "win32/event_loop.h"
#include "win32/files.h"
#include "win32/ftp_client.h"
#include "win32/registry.h"
#include "win32/tcp_socket.h"
#else
#include "fakes/fakes.h"
#include "fakes/posix_socket.h"
#endif

namespace tagrix {

// A real socket and a real server. `Serve` makes the server that answers a request (ended by an empty line) and says on
// which port; with `close` it closes afterwards.
template <typename Events, typename Socket>
struct RealSocketCase {
  int Serve(std::string answer, bool close) {
    server.emplace([answer = std::move(answer), close](Peer& peer) {
      if (peer.ReadTo("\r\n\r\n").empty()) return;
      peer.Write(answer);
      if (!close) peer.ReadTo("");
    });
    return server->Port();
  }
  int Refuse() { return RefusedPort(); }

  Events events;
  std::optional<LoopbackServer> server;  // outlives the socket, whose end it waits for
  Socket socket{events};
};

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

struct MessageSocket : WinTcpSocket {
  explicit MessageSocket(WinEventLoop&) {}
};
using RealSocket = RealSocketCase<WinEventLoop, MessageSocket>;
using SocketCases = testing::Types<RealSocket>;

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

struct FakeSocketCase {
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
using RealSocket = RealSocketCase<PosixEvents, PosixSocket>;
using SocketCases = testing::Types<FakeSocketCase, RealSocket>;

#endif

inline std::string Content(Files& files, const std::wstring& path) {
  const auto file = files.OpenForReading(path);
  std::string content(static_cast<size_t>(file->Size()) + 1, '\0');
  content.resize(file->Read(0, content.data(), content.size()));
  return content;
}

}  // namespace tagrix

#endif
