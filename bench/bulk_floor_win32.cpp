// bulk_floor_win32 FOLDER: the calls that the bulk renamer makes, in bare loops: lists the folder, twice, looks each
// file up and renames it, renames it back. Prints how long each took, in milliseconds.
#include <windows.h>

#include <algorithm>

#include "bench/machine.h"

namespace {

std::vector<std::string> Paths(const std::string& folder) {
  std::vector<std::string> paths;
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileExA((folder + "*").c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) paths.push_back(folder + found.cFileName);
  } while (FindNextFileA(search, &found));
  FindClose(search);
  return paths;
}

bool LookUp(const std::string& path) {
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileExA(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
  return search != INVALID_HANDLE_VALUE && FindClose(search);
}

}  // namespace

int main(int, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "\\";
  std::vector<std::string> paths;
  bool good = true;
  for (const char* step : {"add", "again"}) tagrix::Time(step, [&] { paths = Paths(folder); });
  std::vector<std::string> renamed = paths;
  for (std::string& path : renamed) {
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(folder.size()), path.end(), ' ', '_');
  }
  tagrix::Time("run", [&] {
    for (std::size_t i = 0; i < paths.size(); ++i)
      good = LookUp(paths[i]) && MoveFileExA(paths[i].c_str(), renamed[i].c_str(), 0) && good;
  });
  tagrix::Time("undo", [&] {
    for (std::size_t i = 0; i < paths.size(); ++i) good = MoveFileExA(renamed[i].c_str(), paths[i].c_str(), 0) && good;
  });
  return good ? 0 : 1;
}
