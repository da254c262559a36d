// The program: chooses the implementations of the ports and shows the main window.
#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include "app/main_window.h"
#include "core/context.h"
#include "core/paths.h"
#include "win32/clock.h"
#include "win32/code_page.h"
#include "win32/event_loop.h"
#include "win32/files.h"
#include "win32/ftp_client.h"
#include "win32/prompts.h"
#include "win32/registry.h"
#include "win32/shell.h"
#include "win32/tcp_socket.h"

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

int Run() {
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
  Context context(Ports{files, registry, codePage, events, clock, shell, prompts, socket, ftp}, ProgramFolder());
  MainWindow window(context);
  if (!window.StartUp()) return 1;
  prompts.ShowModal(window.form);
  return 0;
}

}  // namespace
}  // namespace tagrix

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
  return tagrix::Run();
}
