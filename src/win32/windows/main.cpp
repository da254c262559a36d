// The program: chooses the implementations of the ports and shows the main window.
#include <windows.h>
// Need windows.h before them.
#include <commctrl.h>
#include <shellapi.h>

#include "app/main_window.h"
#include "base/paths.h"
#include "core/context.h"
#include "win32/ports/clock.h"
#include "win32/ports/code_page.h"
#include "win32/ports/files.h"
#include "win32/ports/ftp_client.h"
#include "win32/ports/registry.h"
#include "win32/ports/secure_http.h"
#include "win32/ports/shell.h"
#include "win32/ports/tcp_socket.h"
#include "win32/windows/event_loop.h"
#include "win32/windows/process.h"
#include "win32/windows/prompts.h"

namespace tagrix {
namespace {

std::wstring ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  // As long as it is cut off.
  while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) == path.size()) {
    path.resize(2 * path.size());
  }
  path.resize(length);
  return WithoutBackslash(std::wstring(FolderPart(path)));
}

// The path that the program was started with ("Send to", a folder dropped on its icon); empty without one.
std::wstring PathArgument(const wchar_t* arguments) {
  int count = 0;
  std::wstring path;
  if (*arguments == L'\0') return path;  // the function below takes the first for the program's name
  wchar_t** const parts = CommandLineToArgvW(arguments, &count);
  if (parts != nullptr && count > 0) {
    path.resize(GetFullPathNameW(parts[0], 0, nullptr, nullptr));
    path.resize(GetFullPathNameW(parts[0], static_cast<DWORD>(path.size()), path.data(), nullptr));
  }
  LocalFree(parts);
  return path;
}

int Run(const wchar_t* arguments) {
  PrepareProcess();
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_TREEVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  WinFiles files;
  WinRegistry registry;
  WinCodePage codePage;
  WinEventLoop events;
  WinClock clock;
  WinShell shell;
  WinPrompts prompts;
  WinTcpSocket socket;
  WinFtpClient ftp;
  WinHttpsClient https;
  Context context(Ports{files, registry, codePage, events, clock, shell, prompts, socket, ftp, https}, ProgramFolder());
  MainWindow window(context);
  if (!window.StartUp()) return 1;
  window.openAtStart = PathArgument(arguments);
  prompts.ShowModal(window.form);
  return 0;
}

}  // namespace
}  // namespace tagrix

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR arguments, int /*show*/) {
  return tagrix::RunShowingFailures([arguments] { return tagrix::Run(arguments); });
}
