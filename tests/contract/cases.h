// The ports that share contracts on this system, each with what a test does to it from outside.
#ifndef TAGRIX_TESTS_CONTRACT_CASES_H
#define TAGRIX_TESTS_CONTRACT_CASES_H

#include <gtest/gtest.h>

#include <string>

#ifdef _WIN32
#include "win32/ports/code_page.h"
#include "win32/ports/files.h"
#include "win32/ports/ftp_client.h"
#include "win32/ports/registry.h"
#include "win32/ports/tcp_socket.h"
#include "win32/windows/event_loop.h"
#else
#include "fakes/fakes.h"
#endif

namespace tagrix {

#ifdef _WIN32

using RegistryCase = WinRegistry;
using CodePageCase = WinCodePage;
// What with_servers.py tells in an environment variable.
std::string Place(const char* name);
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

// The servers of both are real ones, which the environment names (see with_servers.py).
struct FtpCase : FilesCase {
  FtpCase();
  static void Offer(const std::string& path, const std::string& content);
  void Silence();  // from now on the server takes connections and says nothing
  static int RefusingPort();

  WinEventLoop events;
  WinFtpClient ftp;
  FtpRequest request;
};

// At the echoing port each request (up to an empty line) comes back; after one that begins with "close" the server
// closes the connection.
struct SocketCase {
  static int EchoingPort();
  static int RefusingPort() { return FtpCase::RefusingPort(); }

  WinEventLoop events;
  WinTcpSocket socket;
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

struct FtpCase : FilesCase {
  void Offer(const std::string& path, const std::string& content) { ftp.remote[Widen(path)] = content; }
  void Silence() { ftp.stall = true; }

  FakeEvents events;
  FakeFtp ftp{events, files};
  FtpRequest request;
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

#endif

inline std::string Content(Files& files, const std::wstring& path) {
  const auto file = files.OpenForReading(path);
  std::string content(static_cast<size_t>(file->Size()) + 1, '\0');
  content.resize(file->Read(0, content.data(), content.size()));
  return content;
}

}  // namespace tagrix

#endif
