#include <winsock2.h>
// Needs winsock2.h before it.
#include <windows.h>
// Needs windows.h before it.
#include <psapi.h>

#include "bench/machine.h"
#include "core/text.h"
#include "win32/event_loop.h"
#include "win32/files.h"
#include "win32/tcp_socket.h"

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
