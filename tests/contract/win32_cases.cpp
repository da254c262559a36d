// What a test does to the ports of Windows from outside.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "contract/cases.h"

namespace tagrix {
namespace {

// Removes a folder that may be missing, may hold long paths and read-only files.
void RemoveTree(WinFiles& files, const std::wstring& folder) {
  if (!files.Find(folder)) return;
  std::vector<FileInfo> entries;
  files.List(folder, L"*", [&](const FileInfo& info) {
    entries.push_back(info);
    return true;
  });
  for (const FileInfo& entry : entries) {
    const std::wstring path = folder + L"\\" + entry.name;
    if (entry.folder && !entry.link) {
      RemoveTree(files, path);
    } else {
      SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      files.Delete(path);
    }
  }
  RemoveDirectoryW((L"\\\\?\\" + folder).c_str());
}

}  // namespace

void DeleteRegistryKey(const std::wstring& key) { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }

FilesCase::FilesCase() : folder((std::filesystem::temp_directory_path() / "tagrix.contract").wstring()) {
  RemoveTree(files, folder);
  files.CreateFolder(folder);
}

FilesCase::~FilesCase() { RemoveTree(files, folder); }

bool FilesCase::Lenient() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

void FilesCase::SetReadOnly(const std::wstring& path) { SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY); }

bool FilesCase::AddLink(const std::wstring& path) {
  return CreateSymbolicLinkW(path.c_str(), L"..", SYMBOLIC_LINK_FLAG_DIRECTORY) != 0 && files.Find(path);
}

FtpCase::FtpCase() {
  request.user = L"someone";
  request.password = L"secret";
  request.host = L"127.0.0.1";
  if (HasServer()) request.port = std::atoi(std::getenv("TAGRIX_FTP_PORT"));
}

bool FtpCase::HasServer() { return std::getenv("TAGRIX_FTP_PORT") != nullptr; }

void FtpCase::Offer(const std::string& path, const std::string& content) {
  std::ofstream("Z:" + std::string(std::getenv("TAGRIX_FTP_FOLDER")) + path, std::ios::binary) << content;
}

int SocketCase::Serve(const std::string& answer, bool close) {
  server.emplace([answer, close](Peer& peer) {
    if (peer.ReadTo("\r\n\r\n").empty()) return;
    peer.Write(answer);
    if (!close) peer.ReadTo("");
  });
  return server->Port();
}

}  // namespace tagrix
