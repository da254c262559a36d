// Plays the burning program: records in a file beside itself how it was called, and stays until it is told to end.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

// Writes "called.txt" (the command line, then the list file's bytes), waits at most 20 seconds for "end.txt", and
// writes "ended.txt".
int main() {
  namespace fs = std::filesystem;
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const fs::path folder = fs::path(path).parent_path();

  const std::wstring line = GetCommandLineW();
  const std::wstring option = L"/fl=\"";
  const size_t start = line.find(option) + option.size();
  std::ifstream list(fs::path(line.substr(start, line.find(L'"', start) - start)), std::ios::binary);
  {
    std::ofstream record(folder / "called.new", std::ios::binary);
    record << fs::path(line).string() << "\n" << list.rdbuf();
  }
  fs::rename(folder / "called.new", folder / "called.txt");

  for (int tries = 0; tries < 400 && !fs::exists(folder / "end.txt"); ++tries) Sleep(50);
  std::ofstream(folder / "ended.txt") << "ended";
}
