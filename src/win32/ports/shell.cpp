#include "win32/ports/shell.h"

#include <windows.h>
// Need windows.h before them.
#include <mmsystem.h>
#include <shellapi.h>

#include <cstring>

#include "base/paths.h"
#include "win32/ports/unique.h"

namespace tagrix {
namespace {

constexpr DWORD kElevationRequired = 740;  // ERROR_ELEVATION_REQUIRED, which these headers lack

class WinProcess : public Process {
 public:
  explicit WinProcess(HANDLE process) : process_(process) {}
  bool Running() override { return process_ && WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT; }

 private:
  UniqueKernel process_;
};

// What follows the program's name in a command line; the name may hold blanks without being quoted.
std::wstring Arguments(const std::wstring& program, const std::wstring& commandLine) {
  const bool quoted = commandLine.starts_with(L'"');
  const size_t end = commandLine.starts_with(program) ? program.size() : commandLine.find(quoted ? L'"' : L' ', 1);
  const size_t start = end == commandLine.npos ? end : commandLine.find_first_not_of(L' ', quoted ? end + 1 : end);
  return start == commandLine.npos ? std::wstring() : commandLine.substr(start);
}

std::unique_ptr<Process> StartByShell(const std::wstring& program, const std::wstring& commandLine) {
  const std::wstring arguments = Arguments(program, commandLine);
  SHELLEXECUTEINFOW start{};
  start.cbSize = sizeof start;
  start.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
  start.lpFile = program.c_str();
  start.lpParameters = arguments.c_str();
  start.nShow = SW_SHOWNORMAL;
  if (!ShellExecuteExW(&start)) return nullptr;
  return std::make_unique<WinProcess>(start.hProcess);
}

}  // namespace

bool WinShell::OpenLink(const std::wstring& link) {
  // The result is no handle: above 32 it means success.
  const HINSTANCE result = ShellExecuteW(nullptr, L"open", link.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > 32;
}

std::unique_ptr<Process> WinShell::Start(const std::wstring& program, const std::wstring& commandLine) {
  if (!IsFullPath(program)) return nullptr;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESHOWWINDOW;
  start.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION started{};
  std::wstring writable = commandLine;
  if (!CreateProcessW(program.c_str(), writable.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr, nullptr,
                      &start, &started)) {
    return GetLastError() == kElevationRequired ? StartByShell(program, commandLine) : nullptr;
  }
  CloseHandle(started.hThread);
  return std::make_unique<WinProcess>(started.hProcess);
}

bool WinShell::OpenFile(const std::wstring& path) { return IsFullPath(path) && OpenLink(path); }

bool WinShell::ShowInFolder(const std::wstring& path) {
  // Explorer would show some other folder instead.
  if (!IsFullPath(path) || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
  const std::wstring arguments = L"/select,\"" + path + L"\"";
  wchar_t folder[MAX_PATH]{};  // a bare name would be looked for in the current folder, too
  GetWindowsDirectoryW(folder, MAX_PATH);
  const std::wstring explorer = std::wstring(folder) + L"\\explorer.exe";
  const HINSTANCE result = ShellExecuteW(nullptr, nullptr, explorer.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > 32;
}

void WinShell::CopyText(const std::wstring& text) {
  if (!OpenClipboard(nullptr)) return;
  EmptyClipboard();
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  // The clipboard owns what it has taken.
  if (const HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, size)) {
    std::memcpy(GlobalLock(copy), text.c_str(), size);
    GlobalUnlock(copy);
    if (SetClipboardData(CF_UNICODETEXT, copy) == nullptr) GlobalFree(copy);
  }
  CloseClipboard();
}

void WinShell::PlaySoundFile(const std::wstring& path) {
  PlaySoundW(path.c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace tagrix
