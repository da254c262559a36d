// The FTP clients that share one contract on this system, each with its event loop, its server and a local folder.
#ifndef TAGRIX_TESTS_CONTRACT_FTP_CASES_H
#define TAGRIX_TESTS_CONTRACT_FTP_CASES_H

#include <gtest/gtest.h>

#include <string>

#ifdef _WIN32
#include <cstdlib>
#include <fstream>

#include "contract/message_loop.h"
#include "contract/scratch_folder.h"
#include "win32/ftp_client.h"
#else
#include "fakes/fakes.h"
#endif

namespace tagrix {

#ifdef _WIN32

// The server is a real one, which the environment names.
struct WinFtpCase {
  WinFtpCase() {
    if (!HasServer()) return;
    request.user = L"someone";
    request.password = L"secret";
    request.host = L"127.0.0.1";
    request.port = std::atoi(std::getenv("TAGRIX_FTP_PORT"));
  }
  static bool HasServer() { return std::getenv("TAGRIX_FTP_PORT") != nullptr; }
  void Offer(const std::string& path, const std::string& content) {
    std::ofstream("Z:" + std::string(std::getenv("TAGRIX_FTP_FOLDER")) + path, std::ios::binary) << content;
  }
  bool Has(const std::wstring& path) { return std::filesystem::exists(path); }
  std::string Content(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  MessageLoop events;
  WinFtpClient ftp{2};
  ScratchFolder scratch;
  std::wstring folder = scratch.path.wstring();
  FtpRequest request;
};
using FtpCases = testing::Types<WinFtpCase>;

#else

struct FakeFtpCase {
  static bool HasServer() { return true; }
  void Offer(const std::string& path, const std::string& content) {
    ftp.remote[std::wstring(path.begin(), path.end())] = content;
  }
  bool Has(const std::wstring& path) { return files.Has(path); }
  std::string Content(const std::wstring& path) { return files.Content(path); }

  FakeEvents events;
  FakeFiles files;
  FakeFtp ftp{events, files};
  std::wstring folder = L"C:\\Work";
  FtpRequest request;
};
using FtpCases = testing::Types<FakeFtpCase>;

#endif

}  // namespace tagrix

#endif
