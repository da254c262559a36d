// lister_floor_win32 FOLDER: walks the folder breadth first with the calls that the lister makes, and writes as many
// bytes as its catalogue has, into "floor.txt" there.
#include <windows.h>

#include <deque>
#include <string_view>

#include "bench/machine.h"

namespace {

bool IsMp3(std::string_view name) { return name.size() > 3 && lstrcmpiA(name.data() + name.size() - 4, ".mp3") == 0; }

void Write(HANDLE catalogue, std::string& text) {
  DWORD written = 0;
  WriteFile(catalogue, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  text.clear();
}

void Walk(const std::string& root, HANDLE catalogue) {
  std::string text;
  std::deque<std::string> folders{root};
  for (; !folders.empty(); folders.pop_front()) {
    const std::string folder = folders.front();
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileExA((folder + "\\*").c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                           nullptr, FIND_FIRST_EX_LARGE_FETCH);
    bool block = false;
    do {
      if (found.cFileName[0] == '.') continue;
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        folders.push_back(folder + "\\" + found.cFileName);
        continue;
      }
      if (!IsMp3(found.cFileName)) continue;
      if (!block) text.append("[").append(folder).append("]\r\n");
      block = true;
      char size[32];
      std::snprintf(size, sizeof size, " (%.2f Mb)\r\n", found.nFileSizeLow / 1048576.0);
      text.append("[MP3] ").append(found.cFileName).append(size);
      if (text.size() > 65536) Write(catalogue, text);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    if (block) text.append("\r\n");
  }
  Write(catalogue, text);
}

}  // namespace

int main(int, char** arguments) {
  const std::string root = arguments[1];
  tagrix::Time("milliseconds", [&] {
    const HANDLE catalogue = CreateFileA((root + "\\floor.txt").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                         FILE_ATTRIBUTE_NORMAL, nullptr);
    Walk(root, catalogue);
    FlushFileBuffers(catalogue);
    CloseHandle(catalogue);
  });
}
