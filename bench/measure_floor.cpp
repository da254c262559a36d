// measure_floor FOLDER: opens every MP3 file and reads it up to its first frame.
#include <fcntl.h>
#include <unistd.h>

#include <string_view>

#include "bench/machine.h"

namespace {

bool HoldsFrame(std::string_view bytes) {
  for (std::size_t at = 0; (at = bytes.find('\xFF', at)) != bytes.npos; ++at) {
    if (bytes.substr(at + 1, 1) == "\xFB") return true;
  }
  return false;
}

}  // namespace

int main(int, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "/";
  std::vector<char> buffer(65536);
  tagrix::TimeEach(tagrix::Mp3Names(folder), [&](const std::string& name) {
    const int file = open((folder + name).c_str(), O_RDONLY);
    std::size_t next = 4096;
    for (ssize_t got; (got = read(file, buffer.data(), next)) > 0; next = buffer.size()) {
      if (HoldsFrame({buffer.data(), static_cast<std::size_t>(got)})) break;
    }
    close(file);
  });
}
