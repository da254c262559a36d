#include <fstream>

#include "bench/linux_files.h"
#include "bench/machine.h"
#include "bench/posix_socket.h"

namespace tagrix {
namespace {

std::size_t Status(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  std::size_t value = 0;
  while (status >> word && word != key) continue;
  status >> value;
  return value;
}

}  // namespace

RealFolder OpenFolder(const std::string& folder) { return {OpenLinuxFolder(folder), L"C:\\"}; }

RealNetwork OpenNetwork() {
  auto events = std::make_unique<PosixEvents>();
  auto socket = std::make_unique<PosixSocket>(*events);
  return {std::move(events), std::move(socket)};
}

std::size_t MemoryKib() { return Status("VmRSS:"); }
std::size_t PeakMemoryKib() { return Status("VmHWM:"); }

}  // namespace tagrix
