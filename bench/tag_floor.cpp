// tag_floor FOLDER [flush]: copies every MP3 file in pieces of 1 MiB into a temporary file, which replaces it; with
// "flush" the temporary file is on the disk before.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "bench/machine.h"

int main(int count, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "/", temporary = folder + "temp";
  const bool flush = count > 2;
  std::vector<char> buffer(1 << 20);
  bool good = true;
  tagrix::TimeEach(tagrix::Mp3Names(folder), [&](const std::string& name) {
    const std::string path = folder + name;
    const int from = open(path.c_str(), O_RDONLY);
    const int to = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    for (ssize_t got; (got = read(from, buffer.data(), buffer.size())) > 0;) {
      good = write(to, buffer.data(), static_cast<std::size_t>(got)) == got && good;
    }
    if (flush) good = fsync(to) == 0 && good;
    close(from);
    close(to);
    good = std::rename(temporary.c_str(), path.c_str()) == 0 && good;
  });
  return good ? 0 : 1;
}
