// tag_floor_win32 FOLDER: the calls that WriteTags with both tags makes for every MP3 file, and none else.
#include <windows.h>

#include "bench/machine.h"

namespace {

OVERLAPPED At(DWORD offset) {
  OVERLAPPED place{};
  place.Offset = offset;
  return place;
}

// One call each; the number of bytes moved.
DWORD Read(HANDLE file, DWORD offset, char* buffer, DWORD count) {
  OVERLAPPED place = At(offset);
  DWORD got = 0;
  ReadFile(file, buffer, count, &got, &place);
  return got;
}
DWORD Write(HANDLE file, DWORD offset, const char* buffer, DWORD count) {
  OVERLAPPED place = At(offset);
  DWORD written = 0;
  WriteFile(file, buffer, count, &written, &place);
  return written;
}
DWORD Size(HANDLE file) {
  LARGE_INTEGER size;
  GetFileSizeEx(file, &size);
  return size.LowPart;
}

constexpr DWORD kPiece = 1 << 20, kNewTag = 148, kOldTag = 128;

bool Retag(const std::string& path, const std::string& temporary, std::vector<char>& buffer) {
  WIN32_FIND_DATAA found;
  FindClose(FindFirstFileExA(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
  char label[MAX_PATH + 1];
  GetVolumeInformationA((path.substr(0, 2) + "\\").c_str(), label, sizeof label, nullptr, nullptr, nullptr, nullptr, 0);
  const HANDLE from = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  Read(from, 0, buffer.data(), 11);
  const DWORD size = Size(from);
  Read(from, size - kOldTag, buffer.data(), 3);
  const HANDLE to = CreateFileA(temporary.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD end = Write(to, 0, buffer.data(), kNewTag);
  for (DWORD at = kNewTag; at < size - kOldTag;) {
    const DWORD got = Read(from, at, buffer.data(), std::min(kPiece, size - kOldTag - at));
    if (Write(to, end, buffer.data(), got) != got || got == 0) return false;
    at += got;
    end += got;
  }
  end += Write(to, end, buffer.data(), kOldTag);
  FlushFileBuffers(to);
  const bool whole = Size(to) == end;
  CloseHandle(to);
  CloseHandle(from);
  return whole && MoveFileExA(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING);
}

}  // namespace

int main(int, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "\\";
  std::vector<char> buffer(kPiece);
  bool good = true;
  tagrix::TimeEach(tagrix::Mp3Names(folder),
                   [&](const std::string& name) { good = Retag(folder + name, folder + "temp", buffer) && good; });
  return good ? 0 : 1;
}
