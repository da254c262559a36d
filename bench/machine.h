// What the bench programs ask of the machine: files through the program's own port, memory, names and time.
#ifndef TAGRIX_BENCH_MACHINE_H
#define TAGRIX_BENCH_MACHINE_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/tcp_socket.h"

namespace tagrix {

// The file port on a real folder, and the folder's path in that port.
struct RealFolder {
  std::unique_ptr<Files> files;
  std::wstring path;
};
RealFolder OpenFolder(const std::string& folder);

// The program's socket port on the real network, and the events that drive it.
struct RealNetwork {
  std::unique_ptr<EventLoop> events;
  std::unique_ptr<TcpSocket> socket;
};
RealNetwork OpenNetwork();

// Of this process, now and at most since it started.
std::size_t MemoryKib();
std::size_t PeakMemoryKib();

// The names of the folder's MP3 files, in order.
inline std::vector<std::string> Mp3Names(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".mp3") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class Stopwatch {
 public:
  // Prints the milliseconds since it was made, after a name: a line that bench/run reads.
  void Print(const char* name) const {
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start_;
    std::printf("%s %.3f\n", name, elapsed.count());
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Prints how long the work took.
template <typename Work>
void Time(const char* name, Work work) {
  const Stopwatch watch;
  work();
  watch.Print(name);
}

// The same for the work on each of some names, all together.
template <typename Work>
void TimeEach(const std::vector<std::string>& names, Work work) {
  Time("milliseconds", [&] {
    for (const std::string& name : names) work(name);
  });
}

}  // namespace tagrix

#endif
