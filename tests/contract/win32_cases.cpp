// The ports of Windows for the contracts, and what a test does to them from outside.
#include <windows.h>

#include <vector>

#include "contract/files_cases.h"
#include "contract/small_ports.h"
#include "win32/clock.h"
#include "win32/code_page.h"
#include "win32/registry.h"

namespace tagrix {

void RemoveTree(const std::filesystem::path& folder) {
  WinFiles files;
  if (!files.Find(folder.wstring())) return;
  std::vector<FileInfo> entries;
  files.List(folder.wstring(), L"*", [&](const FileInfo& info) {
    entries.push_back(info);
    return true;
  });
  for (const FileInfo& entry : entries) {
    const std::wstring path = folder.wstring() + L"\\" + entry.name;
    if (entry.folder && !entry.link) {
      RemoveTree(path);
    } else {
      SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      files.Delete(path);
    }
  }
  RemoveDirectoryW((L"\\\\?\\" + folder.wstring()).c_str());
}

bool WinFilesCase::Lenient() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

void WinFilesCase::SetReadOnly(const std::wstring& path) { SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY); }

bool WinFilesCase::AddLink(const std::wstring& path) {
  return CreateSymbolicLinkW(path.c_str(), L"..", SYMBOLIC_LINK_FLAG_DIRECTORY) != 0 && files.Find(path);
}

std::unique_ptr<Registry> MakeRegistry() { return std::make_unique<WinRegistry>(); }
void DeleteRegistryKey(const std::wstring& key) { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }
std::unique_ptr<CodePage> MakeCodePage() { return std::make_unique<WinCodePage>(); }
std::unique_ptr<Clock> MakeClock() { return std::make_unique<WinClock>(); }

}  // namespace tagrix
