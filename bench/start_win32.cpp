// start_win32 PROGRAM: starts a program and prints how long it takes until its window is on screen, and until that is
// painted and waits for the user, and the memory of the process then; closes it.
#include <windows.h>
// Needs windows.h before it.
#include <psapi.h>

#include <chrono>
#include <cstdio>
#include <string>

namespace {

struct Search {
  DWORD process;
  HWND window;
};

BOOL CALLBACK Visit(HWND window, LPARAM search) {
  auto& wanted = *reinterpret_cast<Search*>(search);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != wanted.process || !IsWindowVisible(window)) return TRUE;
  wanted.window = window;
  return FALSE;
}

}  // namespace

int main(int, char** arguments) {
  std::string command = arguments[1];
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started;
  const auto start = std::chrono::steady_clock::now();
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
    return 1;
  Search search{started.dwProcessId, nullptr};
  while (search.window == nullptr && WaitForSingleObject(started.hProcess, 1) == WAIT_TIMEOUT) {
    EnumWindows(Visit, reinterpret_cast<LPARAM>(&search));
  }
  const std::chrono::duration<double, std::milli> shown = std::chrono::steady_clock::now() - start;
  WaitForInputIdle(started.hProcess, 10000);
  const std::chrono::duration<double, std::milli> ready = std::chrono::steady_clock::now() - start;
  if (search.window == nullptr) return 2;
  Sleep(500);
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessMemoryInfo(started.hProcess, &memory, sizeof memory);
  std::printf("shown %.3f\nready %.3f\nkib %zu\n", shown.count(), ready.count(),
              static_cast<std::size_t>(memory.WorkingSetSize / 1024));
  PostMessageW(search.window, WM_CLOSE, 0, 0);
  if (WaitForSingleObject(started.hProcess, 10000) == WAIT_OBJECT_0) return 0;
  TerminateProcess(started.hProcess, 3);
  return 3;
}
