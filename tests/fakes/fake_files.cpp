#include "fakes/fake_files.h"

#include <algorithm>

#include "base/failure.h"
#include "base/file_names.h"
#include "base/letter_case.h"
#include "base/paths.h"

namespace tagrix {
namespace {

std::wstring Parent(const std::wstring& path) { return WithoutBackslash(std::wstring(FolderPart(path))); }

void Check(bool allowed, Action action, const std::wstring& path) {
  if (!allowed) throw Failure(action, path, L"Windows would refuse that.");
}

// Whether a name matches "*.*" or a pattern of a star and an ending.
bool Matches(std::wstring_view pattern, std::wstring_view name) {
  const size_t ending = pattern.size() - 1;
  return pattern == L"*.*" ||
         (name.size() >= ending && EqualIgnoringCase(name.substr(name.size() - ending), pattern.substr(1)));
}

}  // namespace

class FakeFiles::OpenFile : public File {
 public:
  OpenFile(FakeFiles& files, std::wstring path, Entry& entry, bool writable)
      : files_(files), path_(std::move(path)), entry_(entry), writable_(writable) {
    ++entry_.open;
    if (writable_) entry_.writing = true;
  }
  ~OpenFile() override {
    --entry_.open;
    if (writable_) entry_.writing = false;
  }

  std::uint64_t Size() override { return entry_.info.size; }
  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    files_.Call(Action::Read, path_);
    return offset < Size() ? entry_.content.copy(buffer, count, static_cast<std::size_t>(offset)) : 0;
  }
  void Write(std::uint64_t offset, std::string_view bytes) override {
    files_.Call(Action::Write, path_);
    Check(writable_, Action::Write, path_);
    const auto at = static_cast<std::size_t>(offset);
    if (entry_.content.size() < at + bytes.size()) entry_.content.resize(at + bytes.size());
    entry_.content.replace(at, bytes.size(), bytes);
    entry_.info.size = entry_.content.size();
  }
  void Flush() override {
    files_.Call(Action::Write, path_);
    entry_.flushed = entry_.content;
  }

 private:
  FakeFiles& files_;
  std::wstring path_;
  Entry& entry_;  // stays where it is: an open file can't be moved
  bool writable_;
};

void FakeFiles::Put(const std::wstring& path, std::string content) {
  AddFolder(Parent(path));
  Entry& entry = entries_[path];
  if (entry.info.name.empty()) entry.info.name = FileNamePart(path);
  entry.info.size = content.size();
  entry.content = entry.flushed = std::move(content);
}

std::string FakeFiles::Content(const std::wstring& path) const {
  const auto found = entries_.find(path);
  return found == entries_.end() ? std::string() : found->second.content;
}

bool FakeFiles::Has(const std::wstring& path) const { return entries_.contains(WithoutBackslash(path)); }

void FakeFiles::AddFolder(const std::wstring& path) {
  if (path.empty() || Has(path)) return;
  AddFolder(Parent(path));
  FileInfo& info = entries_[path].info;
  info.name = FileNamePart(path);
  info.folder = true;
}

void FakeFiles::AddLink(const std::wstring& path) {
  AddFolder(path);
  entries_.at(path).info.link = true;
}

void FakeFiles::SetLabel(const std::wstring& drive, bool labelled) {
  AddFolder(drive);
  entries_.at(drive).labelled = labelled;
}

std::vector<std::wstring> FakeFiles::AllFiles() const {
  std::vector<std::wstring> paths;
  for (const auto& [path, entry] : entries_) {
    if (!entry.info.folder) paths.push_back(path);
  }
  return paths;
}

void FakeFiles::Call(Action action, const std::wstring& path) {
  if (beforeCall) beforeCall(path);
  if (failAt_ == 0) return;
  const bool fails = failAt_ == 1;
  if (!fails || !dies_) --failAt_;
  Check(!fails, action, path);
}

void FakeFiles::Restart(Unflushed unflushed) {
  failAt_ = 0;
  dies_ = false;
  for (auto& [path, entry] : entries_) {
    const std::size_t half = entry.content.size() / 2;
    std::string old = entry.flushed;
    if (unflushed != Unflushed::Lost && unflushed != Unflushed::Kept) old.resize(entry.content.size());
    if (unflushed == Unflushed::Lost) entry.content = old;
    if (unflushed == Unflushed::FirstHalf) entry.content.replace(half, std::string::npos, old, half);
    if (unflushed == Unflushed::SecondHalf) entry.content.replace(0, half, old, 0, half);
    entry.flushed = entry.content;
    entry.info.size = entry.content.size();
  }
}

FakeFiles::Entry& FakeFiles::Need(Action action, const std::wstring& path, bool folder) {
  const auto found = entries_.find(WithoutBackslash(path));
  Check(found != entries_.end() && found->second.info.folder == folder, action, path);
  return found->second;
}

std::optional<FileInfo> FakeFiles::Find(const std::wstring& path) {
  const auto found = entries_.find(WithoutBackslash(path));
  return found == entries_.end() ? std::nullopt : std::optional(found->second.info);
}

std::unique_ptr<File> FakeFiles::Open(Action action, const std::wstring& path, bool writable) {
  Entry& entry = Need(action, path, false);
  Check(!writable || !(entry.info.readOnly || entry.writing), action, path);
  return std::make_unique<OpenFile>(*this, path, entry, writable);
}

std::unique_ptr<File> FakeFiles::OpenForReading(const std::wstring& path) {
  Call(Action::Open, path);
  return Open(Action::Open, path, false);
}

std::unique_ptr<File> FakeFiles::OpenForWriting(const std::wstring& path) {
  Call(Action::Open, path);
  return Open(Action::Open, path, true);
}

std::unique_ptr<File> FakeFiles::Create(const std::wstring& path) {
  Call(Action::Create, path);
  Check(CanNameAFile(path), Action::Create, path);
  Need(Action::Create, Parent(path), true);
  if (!Has(path)) Put(path);
  auto file = Open(Action::Create, path, true);
  Put(path);
  return file;
}

void FakeFiles::Move(const std::wstring& from, const std::wstring& to) {
  auto node = entries_.extract(from);
  node.key() = to;
  node.mapped().info.name = FileNamePart(to);
  entries_.insert(std::move(node));
}

void FakeFiles::Rename(const std::wstring& from, const std::wstring& to) {
  Call(Action::Rename, from);
  Check(Need(Action::Rename, from, false).open == 0, Action::Rename, from);
  Need(Action::Rename, Parent(to), true);
  Check(CanNameAFile(to) && (!Has(to) || EqualIgnoringCase(from, to)), Action::Rename, to);
  Move(from, to);
}

void FakeFiles::Replace(const std::wstring& from, const std::wstring& over) {
  Call(Action::Replace, over);
  Check(Need(Action::Replace, from, false).open == 0, Action::Replace, over);
  const Entry& target = Need(Action::Replace, over, false);
  Check(target.open == 0 && !target.info.readOnly, Action::Replace, over);
  const std::wstring path = entries_.extract(over).key();
  Move(from, path);
}

void FakeFiles::Delete(const std::wstring& path) {
  Call(Action::Delete, path);
  const Entry& entry = Need(Action::Delete, path, false);
  Check(entry.open == 0 && !entry.info.readOnly, Action::Delete, path);
  entries_.extract(path);
}

void FakeFiles::CreateFolder(const std::wstring& path) {
  Call(Action::CreateFolder, path);
  Need(Action::CreateFolder, Parent(WithoutBackslash(path)), true);
  Check(CanNameAFile(path) && !Has(path), Action::CreateFolder, path);
  AddFolder(WithoutBackslash(path));
}

void FakeFiles::List(const std::wstring& folder, const std::wstring& pattern,
                     const std::function<bool(const FileInfo&)>& entry) {
  Call(Action::List, folder);
  Need(Action::List, folder, true);
  const std::wstring prefix = WithBackslash(folder);
  std::vector<FileInfo> found;
  for (auto at = entries_.upper_bound(prefix); at != entries_.end(); ++at) {
    const std::wstring& path = at->first;
    if (!StartsWithIgnoringCase(path, prefix)) break;
    if (path.find(L'\\', prefix.size()) != path.npos || !Matches(pattern, at->second.info.name)) continue;
    found.push_back(at->second.info);
  }
  for (const FileInfo& info : found) {
    if (!entry(info)) return;
  }
}

std::vector<std::wstring> FakeFiles::Drives() {
  std::vector<std::wstring> drives;
  for (const auto& [path, entry] : entries_) {
    if (path.find(L'\\') == path.npos) drives.push_back(path);
  }
  return drives;
}

bool FakeFiles::HasVolumeLabel(const std::wstring& drive) {
  return entries_.contains(drive) && entries_.at(drive).labelled;
}

}  // namespace tagrix
