#include <winsock2.h>
// Needs winsock2.h before it.
#include <windows.h>
// Needs windows.h before it.
#include <psapi.h>

#include "base/text.h"
#include "bench/machine.h"
#include "win32/ports/files.h"
#include "win32/ports/tcp_socket.h"
#include "win32/windows/event_loop.h"

namespace tagrix {
namespace {

PROCESS_MEMORY_COUNTERS Memory() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters;
}

}  // namespace

RealFolder OpenFolder(const std::string& folder) { return {std::make_unique<WinFiles>(), Widen(folder) + L"\\"}; }

RealNetwork OpenNetwork() { return {std::make_unique<WinEventLoop>(), std::make_unique<WinTcpSocket>()}; }

std::size_t MemoryKib() { return Memory().WorkingSetSize / 1024; }
std::size_t PeakMemoryKib() { return Memory().PeakWorkingSetSize / 1024; }

}  // namespace tagrix
