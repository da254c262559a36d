// bulk_floor FOLDER: the system calls of the bulk renamer in bare loops: lists the folder with a look at each file,
// twice, looks each file up and renames it, renames it back. Prints how long each took, in milliseconds.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>

#include "bench/machine.h"

int main(int, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "/";
  std::vector<std::string> paths, renamed;
  struct stat status;
  bool good = true;
  const auto add = [&] {
    paths.clear();
    DIR* listed = opendir(folder.c_str());
    while (const dirent* entry = readdir(listed)) {
      if (entry->d_type == DT_DIR) continue;
      good = fstatat(dirfd(listed), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && good;
      paths.push_back(folder + entry->d_name);
    }
    closedir(listed);
  };
  tagrix::Time("add", add);
  tagrix::Time("again", add);
  renamed = paths;
  for (std::string& path : renamed)
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(folder.size()), path.end(), ' ', '_');
  const auto rename = [&](const std::string& from, const std::string& to) {
    good = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 && good;
  };
  tagrix::Time("run", [&] {
    for (std::size_t i = 0; i < paths.size(); ++i) {
      good = fstatat(AT_FDCWD, paths[i].c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && good;
      rename(paths[i], renamed[i]);
    }
  });
  tagrix::Time("undo", [&] {
    for (std::size_t i = 0; i < paths.size(); ++i) rename(renamed[i], paths[i]);
  });
  return good ? 0 : 1;
}
