#include "win32/ports/files.h"

#include <windows.h>
// Needs windows.h before it.
#include <knownfolders.h>
#include <shlobj.h>

#include <algorithm>

#include "base/file_names.h"
#include "base/paths.h"
#include "win32/ports/native_path.h"
#include "win32/ports/system_message.h"
#include "win32/ports/unique.h"

namespace tagrix {
namespace {

struct FindTraits {
  using Handle = HANDLE;
  static Handle None() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { FindClose(handle); }
};
using UniqueFind = Unique<FindTraits>;

std::wstring Native(Action action, const std::wstring& path, const std::wstring& pattern = {}) {
  if (!CanNameAFile(path)) throw Failure(action, path, Cause::BadName);
  return NativePath(path + pattern);
}

FileInfo Describe(DWORD attributes, DWORD reparseTag, DWORD sizeHigh, DWORD sizeLow) {
  FileInfo info;
  info.folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // Reparse points of other kinds are files like any other: those that a cloud service holds, say.
  info.link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
              (reparseTag == IO_REPARSE_TAG_SYMLINK || reparseTag == IO_REPARSE_TAG_MOUNT_POINT);
  info.readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (!info.folder) info.size = static_cast<std::uint64_t>(sizeHigh) << 32 | sizeLow;
  return info;
}

FileInfo Describe(const WIN32_FIND_DATAW& found) {
  FileInfo info = Describe(found.dwFileAttributes, found.dwReserved0, found.nFileSizeHigh, found.nFileSizeLow);
  info.name = found.cFileName;
  return info;
}

class WinFile : public File {
 public:
  WinFile(UniqueFile file, std::wstring path) : file_(std::move(file)), path_(std::move(path)) {}

  std::uint64_t Size() override {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file_.Get(), &size)) throw LastErrorFailure(Action::Read, path_);
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    std::size_t done = 0;
    for (DWORD piece = 0, got = 0; done < count && got == piece; done += got) {
      piece = Piece(count - done);
      OVERLAPPED place = Place(offset + done);
      if (!ReadFile(file_.Get(), buffer + done, piece, &got, &place)) {
        if (GetLastError() != ERROR_HANDLE_EOF) throw LastErrorFailure(Action::Read, path_);
        break;
      }
    }
    return done;
  }

  void Write(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD written = 0;
      OVERLAPPED place = Place(offset);
      if (!WriteFile(file_.Get(), bytes.data(), Piece(bytes.size()), &written, &place)) {
        throw LastErrorFailure(Action::Write, path_);
      }
      offset += written;
      bytes.remove_prefix(written);
    }
  }

  void Flush() override {
    if (!FlushFileBuffers(file_.Get())) throw LastErrorFailure(Action::Write, path_);
  }

 private:
  static DWORD Piece(std::size_t count) { return static_cast<DWORD>(std::min<std::size_t>(count, 1U << 30)); }
  static OVERLAPPED Place(std::uint64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
  }

  UniqueFile file_;
  std::wstring path_;
};

std::unique_ptr<File> Open(Action action, const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
  UniqueFile file(
      CreateFileW(Native(action, path).c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) throw LastErrorFailure(action, path);
  return std::make_unique<WinFile>(std::move(file), path);
}

void Check(BOOL done, Action action, const std::wstring& path) {
  if (!done) throw LastErrorFailure(action, path);
}

std::wstring KnownFolder(const KNOWNFOLDERID& id) {
  wchar_t* path = nullptr;
  std::wstring folder;
  if (SHGetKnownFolderPath(id, 0, nullptr, &path) == S_OK) folder = path;
  CoTaskMemFree(path);
  return folder;
}

}  // namespace

std::optional<FileInfo> WinFiles::Find(const std::wstring& path) {
  const std::wstring wanted = WithoutBackslash(path);
  if (!CanNameAFile(wanted)) return {};
  const std::wstring native = NativePath(wanted);
  if (!IsRoot(wanted)) {
    WIN32_FIND_DATAW found;
    const UniqueFind search(
        FindFirstFileExW(native.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
    if (search) return Describe(found);
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return {};
  }
  // A root is no entry of a folder, and the folder above may be closed to the user.
  WIN32_FILE_ATTRIBUTE_DATA known;
  if (!GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &known)) return {};
  FileInfo info = Describe(known.dwFileAttributes, 0, known.nFileSizeHigh, known.nFileSizeLow);
  info.name = FileNamePart(wanted);
  return info;
}

std::unique_ptr<File> WinFiles::OpenForReading(const std::wstring& path) {
  return Open(Action::Open, path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
}

std::unique_ptr<File> WinFiles::OpenForWriting(const std::wstring& path) {
  return Open(Action::Open, path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
}

std::unique_ptr<File> WinFiles::Create(const std::wstring& path) {
  return Open(Action::Create, path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS);
}

void WinFiles::Rename(const std::wstring& from, const std::wstring& to) {
  Check(MoveFileExW(Native(Action::Rename, from).c_str(), Native(Action::Rename, to).c_str(), 0), Action::Rename, from);
}

void WinFiles::Replace(const std::wstring& from, const std::wstring& over) {
  // ReplaceFileW would keep the attributes of the old file, but takes several steps: a failure between them leaves the
  // old file under another name.
  Check(MoveFileExW(Native(Action::Replace, from).c_str(), Native(Action::Replace, over).c_str(),
                    MOVEFILE_REPLACE_EXISTING),
        Action::Replace, over);
}

void WinFiles::Delete(const std::wstring& path) {
  Check(DeleteFileW(Native(Action::Delete, path).c_str()), Action::Delete, path);
}

void WinFiles::CreateFolder(const std::wstring& path) {
  Check(CreateDirectoryW(Native(Action::CreateFolder, path).c_str(), nullptr), Action::CreateFolder, path);
}

void WinFiles::List(const std::wstring& folder, const std::wstring& pattern,
                    const std::function<bool(const FileInfo&)>& entry) {
  const std::wstring all = Native(Action::List, WithBackslash(folder), pattern);
  WIN32_FIND_DATAW found;
  const UniqueFind search(FindFirstFileExW(all.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr,
                                           FIND_FIRST_EX_LARGE_FETCH));
  if (!search) {
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return;  // the folder is there, and empty
    throw LastErrorFailure(Action::List, folder);
  }
  do {
    const std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    if (!entry(Describe(found))) return;
  } while (FindNextFileW(search.Get(), &found));
  if (GetLastError() != ERROR_NO_MORE_FILES) throw LastErrorFailure(Action::List, folder);
}

std::vector<std::wstring> WinFiles::Drives() {
  std::vector<std::wstring> drives;
  const DWORD present = GetLogicalDrives();
  for (int letter = 0; letter < 26; ++letter) {
    if ((present >> letter & 1) != 0) drives.push_back({static_cast<wchar_t>(L'A' + letter), L':'});
  }
  return drives;
}

bool WinFiles::HasVolumeLabel(const std::wstring& drive) {
  wchar_t label[MAX_PATH + 1] = L"";
  return GetVolumeInformationW(NativePath(drive).c_str(), label, static_cast<DWORD>(std::size(label)), nullptr, nullptr,
                               nullptr, nullptr, 0) &&
         label[0] != L'\0';
}

std::wstring WinFiles::MusicFolder() { return KnownFolder(FOLDERID_Music); }
std::wstring WinFiles::DesktopFolder() { return KnownFolder(FOLDERID_Desktop); }

}  // namespace tagrix
