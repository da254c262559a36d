// measure_floor FOLDER [ends | whole]: opens every MP3 file and reads it up to its first frame; "ends": passes over the
// tag before that frame, and reads a block at the end, too; "whole": reads all of it.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>

#include "bench/machine.h"

namespace {

constexpr std::size_t kBlock = 4096;

bool HoldsFrame(std::string_view bytes) {
  for (std::size_t at = 0; (at = bytes.find('\xFF', at)) != bytes.npos; ++at) {
    if (bytes.substr(at + 1, 1) == "\xFB") return true;
  }
  return false;
}

void ReadToFrame(int file, std::vector<char>& buffer) {
  std::size_t next = kBlock;
  for (ssize_t got; (got = read(file, buffer.data(), next)) > 0; next = buffer.size()) {
    if (HoldsFrame({buffer.data(), static_cast<std::size_t>(got)})) break;
  }
}

void ReadEnds(int file, std::vector<char>& buffer) {
  pread(file, buffer.data(), kBlock, 0);
  off_t start = 0;
  if (std::string_view(buffer.data(), 3) == "ID3") {
    for (int i = 6; i < 10; ++i) start = start << 7 | buffer[static_cast<std::size_t>(i)];
    pread(file, buffer.data(), kBlock, start + 10);
  }
  struct stat status;
  fstat(file, &status);
  pread(file, buffer.data(), kBlock, status.st_size - static_cast<off_t>(kBlock));
}

void ReadAll(int file, std::vector<char>& buffer) {
  while (read(file, buffer.data(), buffer.size()) > 0) continue;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "/";
  const std::string_view what = count > 2 ? arguments[2] : "";
  const auto work = what == "ends" ? &ReadEnds : what == "whole" ? &ReadAll : &ReadToFrame;
  std::vector<char> buffer(65536);
  tagrix::TimeEach(tagrix::Mp3Names(folder), [&](const std::string& name) {
    const int file = open((folder + name).c_str(), O_RDONLY);
    work(file, buffer);
    close(file);
  });
}
