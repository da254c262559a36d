#include "bench/linux_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/failure.h"
#include "base/text.h"

namespace tagrix {
namespace {

// Passes on what a system call returns, unless it failed.
template <typename Result>
Result Check(Result result, Action action, const std::wstring& path) {
  if (result < 0) throw Failure(action, path, Widen(std::strerror(errno)));
  return result;
}

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Looks a name up in an open folder (AT_FDCWD: a whole path); a link is described by what it leads to.
bool Describe(int folder, const char* name, FileInfo& info) {
  struct stat status;
  if (fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return false;
  info.link = S_ISLNK(status.st_mode);
  if (info.link && fstatat(folder, name, &status, 0) != 0) return false;
  info.folder = S_ISDIR(status.st_mode);
  info.readOnly = (status.st_mode & S_IWUSR) == 0;
  info.size = info.folder ? 0 : static_cast<std::uint64_t>(status.st_size);
  return true;
}

class LinuxFile : public File {
 public:
  LinuxFile(int file, std::wstring path) : file_(file), path_(std::move(path)) {}
  ~LinuxFile() override { close(file_); }
  LinuxFile(const LinuxFile&) = delete;
  LinuxFile& operator=(const LinuxFile&) = delete;

  std::uint64_t Size() override {
    struct stat status;
    Check(fstat(file_, &status), Action::Read, path_);
    return static_cast<std::uint64_t>(status.st_size);
  }
  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    const auto at = static_cast<off_t>(offset);
    return static_cast<std::size_t>(Check(pread(file_, buffer, count, at), Action::Read, path_));
  }
  void Write(std::uint64_t offset, std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto at = static_cast<off_t>(offset);
      const auto written = Check(pwrite(file_, bytes.data(), bytes.size(), at), Action::Write, path_);
      offset += static_cast<std::uint64_t>(written);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void Flush() override { Check(fsync(file_), Action::Write, path_); }

 private:
  int file_;
  std::wstring path_;
};

class LinuxFiles : public Files {
 public:
  explicit LinuxFiles(std::string root) : root_(std::move(root)) {}

  std::optional<FileInfo> Find(const std::wstring& path) override {
    const std::string at = LinuxPath(path);
    FileInfo info;
    if (!Describe(AT_FDCWD, at.c_str(), info)) return {};
    info.name = at.size() > root_.size() ? Widen(std::string_view(at).substr(at.rfind('/') + 1)) : L"C:";
    return info;
  }

  std::unique_ptr<File> OpenForReading(const std::wstring& path) override { return Open(Action::Open, path, O_RDONLY); }

  std::unique_ptr<File> OpenForWriting(const std::wstring& path) override { return Open(Action::Open, path, O_RDWR); }

  std::unique_ptr<File> Create(const std::wstring& path) override {
    return Open(Action::Create, path, O_RDWR | O_CREAT | O_TRUNC);
  }

  void Rename(const std::wstring& from, const std::wstring& to) override {
    const std::string source = LinuxPath(from), target = LinuxPath(to);
    if (source == target) return;
    Check(renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE), Action::Rename, from);
  }

  void Replace(const std::wstring& from, const std::wstring& over) override {
    Check(rename(LinuxPath(from).c_str(), LinuxPath(over).c_str()), Action::Replace, over);
  }

  void Delete(const std::wstring& path) override { Check(unlink(LinuxPath(path).c_str()), Action::Delete, path); }

  void CreateFolder(const std::wstring& path) override {
    Check(mkdir(LinuxPath(path).c_str(), 0755), Action::CreateFolder, path);
  }

  void List(const std::wstring& folder, const std::wstring& pattern,
            const std::function<bool(const FileInfo&)>& entry) override {
    const std::unique_ptr<DIR, CloseFolder> listed(opendir(LinuxPath(folder).c_str()));
    Check(listed ? 0 : -1, Action::List, folder);
    const std::string wanted(pattern.begin(), pattern.end());
    FileInfo info;
    while (const dirent* found = readdir(listed.get())) {
      const std::string_view name = found->d_name;
      if (name == "." || name == "..") continue;
      if (wanted != "*" && fnmatch(wanted.c_str(), found->d_name, FNM_CASEFOLD) != 0) continue;
      info.name.assign(name.begin(), name.end());
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

  std::vector<std::wstring> Drives() override { return {L"C:"}; }
  bool HasVolumeLabel(const std::wstring& drive) override { return drive == L"C:"; }
  std::wstring MusicFolder() override { return {}; }
  std::wstring DesktopFolder() override { return {}; }

 private:
  // The Linux path of a path on the drive; empty for another drive.
  std::string LinuxPath(const std::wstring& path) const {
    if (!path.starts_with(L"C:")) return {};
    std::string result(root_.size() + path.size() - 2, '\0');
    std::copy(root_.begin(), root_.end(), result.begin());
    std::transform(path.begin() + 2, path.end(), result.begin() + static_cast<std::ptrdiff_t>(root_.size()),
                   [](wchar_t c) { return c == L'\\' ? '/' : static_cast<char>(c); });
    if (result.ends_with('/')) result.pop_back();
    return result;
  }

  std::unique_ptr<File> Open(Action action, const std::wstring& path, int flags) const {
    const int file = Check(open(LinuxPath(path).c_str(), flags | O_CLOEXEC, 0644), action, path);
    return std::make_unique<LinuxFile>(file, path);
  }

  std::string root_;
};

}  // namespace

std::unique_ptr<Files> OpenLinuxFolder(std::string root) { return std::make_unique<LinuxFiles>(std::move(root)); }

}  // namespace tagrix
