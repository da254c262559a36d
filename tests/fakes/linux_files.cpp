#include "fakes/linux_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "core/failure.h"
#include "core/paths.h"
#include "core/text.h"
#include "fakes/name_rules.h"
#include "fakes/utf8.h"

namespace tagrix {
namespace {

Failure SystemFailure(const wchar_t* operation, const std::wstring& path, int error) {
  return Failure(operation, path, Widen(std::strerror(error)));
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

std::string_view LastComponent(std::string_view path) { return path.substr(path.rfind('/') + 1); }

bool IsReadOnly(const struct stat& status) { return (status.st_mode & S_IWUSR) == 0; }

void Describe(const struct stat& status, FileInfo& info) {
  info.folder = S_ISDIR(status.st_mode);
  info.readOnly = IsReadOnly(status);
  info.size = info.folder ? 0 : static_cast<std::uint64_t>(status.st_size);
}

// Looks a name up in an open folder (AT_FDCWD: a whole path); a link is described by what it leads to.
bool Describe(int folder, const char* name, FileInfo& info) {
  struct stat status;
  if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return false;
  info.link = S_ISLNK(status.st_mode);
  if (info.link && fstatat(folder, name, &status, 0) != 0) return false;
  Describe(status, info);
  return true;
}

}  // namespace

class LinuxFile : public File {
 public:
  LinuxFile(int file, std::wstring path) : file_(file), path_(std::move(path)) {}
  ~LinuxFile() override { close(file_); }
  LinuxFile(const LinuxFile&) = delete;
  LinuxFile& operator=(const LinuxFile&) = delete;

  std::uint64_t Size() override {
    struct stat status;
    Check(L"Size", fstat(file_, &status));
    return static_cast<std::uint64_t>(status.st_size);
  }
  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    return static_cast<std::size_t>(Check(L"Read", pread(file_, buffer, count, static_cast<off_t>(offset))));
  }
  void Write(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto written = Check(L"Write", pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(offset)));
      offset += static_cast<std::uint64_t>(written);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void Flush() override { Check(L"Flush", fsync(file_)); }

  // The superuser may open what is read-only.
  void RefuseReadOnly(const wchar_t* operation) {
    struct stat status;
    Check(operation, fstat(file_, &status));
    if (IsReadOnly(status)) throw SystemFailure(operation, path_, EACCES);
  }
  void Empty() { Check(L"Create", ftruncate(file_, 0)); }

 private:
  ssize_t Check(const wchar_t* operation, ssize_t result) {
    if (result < 0) throw SystemFailure(operation, path_, errno);
    return result;
  }

  int file_;
  std::wstring path_;
};

std::string LinuxFiles::LinuxPath(const std::wstring& path) const {
  if (!StartsWithIgnoringCase(path, L"C:") || (path.size() > 2 && path[2] != L'\\')) return {};
  std::string result;
  result.reserve(root_.size() + path.size());
  result = root_;
  if (path.size() > 3) AppendUtf8(result, std::wstring_view(path).substr(2));
  std::replace(result.begin() + static_cast<std::ptrdiff_t>(root_.size()), result.end(), '\\', '/');
  if (result.ends_with('/')) result.pop_back();
  return result;
}

bool LinuxFiles::Respell(std::string& path) const {
  bool changed = false;
  for (size_t at = root_.size() + 1; at < path.size();) {
    const size_t end = std::min(path.find('/', at), path.size());
    if (faccessat(AT_FDCWD, path.substr(0, end).c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0) {
      const Folder folder(opendir(path.substr(0, at).c_str()));
      if (!folder) return changed;
      std::wstring wanted, name;
      AssignUtf8(wanted, path.substr(at, end - at));
      while (const dirent* entry = readdir(folder.get())) {
        AssignUtf8(name, entry->d_name);
        if (!EqualIgnoringCase(name, wanted)) continue;
        path.replace(at, end - at, entry->d_name);
        changed = true;
        break;
      }
    }
    at = path.find('/', at);
    at = at == path.npos ? path.size() : at + 1;
  }
  return changed;
}

template <typename Call>
int LinuxFiles::OnPath(std::string& path, Call call) const {
  const int result = call(path.c_str());
  return result < 0 && errno == ENOENT && Respell(path) ? call(path.c_str()) : result;
}

std::optional<FileInfo> LinuxFiles::Find(const std::wstring& path) {
  std::string at = LinuxPath(path);
  FileInfo info;
  if (OnPath(at, [&](const char* name) { return Describe(AT_FDCWD, name, info) ? 0 : -1; }) < 0) return {};
  if (at.size() <= root_.size()) {
    info.name = L"C:";
  } else {
    AssignUtf8(info.name, LastComponent(at));
  }
  return info;
}

std::unique_ptr<LinuxFile> LinuxFiles::Open(const wchar_t* operation, const std::wstring& path, int flags) {
  std::string at = LinuxPath(path);
  const int file = OnPath(at, [&](const char* name) { return open(name, flags | O_CLOEXEC, 0644); });
  if (file < 0) throw SystemFailure(operation, path, errno);
  auto opened = std::make_unique<LinuxFile>(file, path);
  if (flags != O_RDONLY) opened->RefuseReadOnly(operation);
  return opened;
}

std::unique_ptr<File> LinuxFiles::OpenForReading(const std::wstring& path) { return Open(L"Open", path, O_RDONLY); }

std::unique_ptr<File> LinuxFiles::OpenForWriting(const std::wstring& path) { return Open(L"Open", path, O_RDWR); }

std::unique_ptr<File> LinuxFiles::Create(const std::wstring& path) {
  if (!ValidName(FileNamePart(path))) throw SystemFailure(L"Create", path, EINVAL);
  auto file = Open(L"Create", path, O_RDWR | O_CREAT);
  file->Empty();
  return file;
}

void LinuxFiles::Rename(const std::wstring& from, const std::wstring& to) {
  if (!ValidName(FileNamePart(to))) throw SystemFailure(L"Rename", to, EINVAL);
  std::string source = LinuxPath(from), target = LinuxPath(to);
  const auto call = [&] { return renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE); };
  int result = call();
  if (result < 0 && errno == ENOENT) {
    // Only the folder of the target has to exist; the name itself is taken as it is spelled.
    const std::string name(LastComponent(target));
    const bool respelled = Respell(source);
    if (Respell(target) || respelled) {
      target.replace(target.rfind('/') + 1, target.npos, name);
      result = call();
    } else {
      errno = ENOENT;
    }
  }
  if (result < 0 && !(errno == EEXIST && source == target)) throw SystemFailure(L"Rename", from, errno);
}

void LinuxFiles::Replace(const std::wstring& from, const std::wstring& over) {
  const std::optional<FileInfo> target = Find(over);
  if (!target || target->folder) throw SystemFailure(L"Replace", over, ENOENT);
  if (target->readOnly) throw SystemFailure(L"Replace", over, EACCES);
  std::string source = LinuxPath(from), at = LinuxPath(std::wstring(FolderPart(over)) + target->name);
  Respell(at);
  if (OnPath(source, [&](const char* name) { return rename(name, at.c_str()); }) < 0) {
    throw SystemFailure(L"Replace", over, errno);
  }
}

void LinuxFiles::Delete(const std::wstring& path) {
  const std::optional<FileInfo> target = Find(path);
  if (target && target->readOnly) throw SystemFailure(L"Delete", path, EACCES);
  std::string at = LinuxPath(path);
  if (OnPath(at, [](const char* name) { return unlink(name); }) < 0) throw SystemFailure(L"Delete", path, errno);
}

void LinuxFiles::CreateFolder(const std::wstring& path) {
  if (!ValidName(FileNamePart(path))) throw SystemFailure(L"Create folder", path, EINVAL);
  std::string at = LinuxPath(path);
  if (OnPath(at, [](const char* name) { return mkdir(name, 0755); }) < 0) {
    throw SystemFailure(L"Create folder", path, errno);
  }
}

void LinuxFiles::List(const std::wstring& folder, const std::wstring& pattern,
                      const std::function<bool(const FileInfo&)>& entry) {
  std::string at = LinuxPath(folder);
  Folder listed;
  OnPath(at, [&](const char* name) {
    listed.reset(opendir(name));
    return listed ? 0 : -1;
  });
  if (!listed) throw SystemFailure(L"List", folder, errno);
  FileInfo info;
  while (const dirent* found = readdir(listed.get())) {
    const std::string_view name = found->d_name;
    if (name == "." || name == "..") continue;
    AssignUtf8(info.name, name);
    if (!MatchesPattern(pattern, info.name)) continue;
    if (found->d_type == DT_DIR) {
      info.folder = true;
      info.link = info.readOnly = false;
      info.size = 0;
    } else if (!Describe(dirfd(listed.get()), found->d_name, info)) {
      continue;  // gone meanwhile, or a link that leads nowhere
    }
    if (!entry(info)) return;
  }
}

bool LinuxFiles::HasVolumeLabel(const std::wstring& drive) { return EqualIgnoringCase(drive, L"C:"); }

}  // namespace tagrix
