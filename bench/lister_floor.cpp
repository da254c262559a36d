// lister_floor FOLDER: walks the folder breadth first in the system's order, looks at the size of each file and writes
// as many bytes as the lister's catalogue has, into "floor.txt" there.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <deque>

#include "bench/machine.h"

namespace {

bool IsMp3(const char* name) {
  const std::size_t length = std::strlen(name);
  return length > 3 && strcasecmp(name + length - 4, ".mp3") == 0;
}

void Walk(const std::string& root, std::FILE* catalogue) {
  std::deque<std::string> folders{root};
  for (; !folders.empty(); folders.pop_front()) {
    DIR* listed = opendir(folders.front().c_str());
    bool block = false;
    while (const dirent* entry = readdir(listed)) {
      if (entry->d_name[0] == '.') continue;
      if (entry->d_type == DT_DIR) {
        folders.push_back(folders.front() + "/" + entry->d_name);
        continue;
      }
      struct stat status;
      if (fstatat(dirfd(listed), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0 || !IsMp3(entry->d_name)) continue;
      if (!block) std::fprintf(catalogue, "[C:%s]\r\n", folders.front().c_str() + root.size());
      block = true;
      std::fprintf(catalogue, "[MP3] %s (%.2f Mb)\r\n", entry->d_name, static_cast<double>(status.st_size) / 1048576);
    }
    if (block) std::fputs("\r\n", catalogue);
    closedir(listed);
  }
}

}  // namespace

int main(int, char** arguments) {
  const std::string root = arguments[1];
  tagrix::Time("milliseconds", [&] {
    std::FILE* catalogue = std::fopen((root + "/floor.txt").c_str(), "wb");
    Walk(root, catalogue);
    std::fclose(catalogue);
  });
  return 0;
}
