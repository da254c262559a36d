#include <fstream>

#include "bench/machine.h"
#include "fakes/linux_files.h"

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

RealFolder OpenFolder(const std::string& folder) { return {std::make_unique<LinuxFiles>(folder), L"C:\\"}; }

std::size_t MemoryKib() { return Status("VmRSS:"); }
std::size_t PeakMemoryKib() { return Status("VmHWM:"); }

}  // namespace tagrix
