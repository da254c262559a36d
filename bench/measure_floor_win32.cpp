// measure_floor_win32 FOLDER: the calls that GetMP3Duration makes for every MP3 file, and none else.
#include <windows.h>

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
  const std::string folder = std::string(arguments[1]) + "\\";
  std::vector<char> buffer(65536);
  tagrix::TimeEach(tagrix::Mp3Names(folder), [&](const std::string& name) {
    const HANDLE file = CreateFileA((folder + name).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    LARGE_INTEGER size;
    GetFileSizeEx(file, &size);
    DWORD next = 4096, got = 0;
    OVERLAPPED place{};
    for (; ReadFile(file, buffer.data(), next, &got, &place) && got > 0; next = 65536) {
      if (HoldsFrame({buffer.data(), got})) break;
      place.Offset += next - 1;
    }
    CloseHandle(file);
  });
}
