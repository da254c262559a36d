#include "fakes/fake_files.h"

#include <algorithm>

#include "core/failure.h"
#include "core/paths.h"
#include "fakes/name_rules.h"

namespace tagrix {

class FakeFile : public File {
 public:
  FakeFile(FakeFiles& files, std::wstring path, FakeFiles::Entry& entry, bool writable)
      : files_(files),
        path_(std::move(path)),
        content_(entry.content),
        open_(entry.open),
        writers_(entry.writers),
        writable_(writable) {
    ++open_;
    if (writable_) ++writers_;
  }
  ~FakeFile() override {
    --open_;
    if (writable_) --writers_;
  }

  std::uint64_t Size() override { return content_->size(); }
  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    files_.Call(L"Read", path_);
    if (offset >= content_->size()) return 0;
    return content_->copy(buffer, count, static_cast<std::size_t>(offset));
  }
  void Write(std::uint64_t offset, std::string_view bytes) override {
    files_.Call(L"Write", path_);
    if (!writable_) throw Failure(L"Write", path_, L"Access is denied.");
    const auto at = static_cast<std::size_t>(offset);
    if (content_->size() < at + bytes.size()) content_->resize(at + bytes.size());
    content_->replace(at, bytes.size(), bytes);
  }
  void Flush() override { files_.Call(L"Flush", path_); }

 private:
  FakeFiles& files_;
  std::wstring path_;
  std::shared_ptr<std::string> content_;
  int &open_, &writers_;
  bool writable_;
};

FakeFiles::FakeFiles() {
  AddFolder(L"C:");
  SetLabel(L"C:", true);
}

void FakeFiles::Call(const wchar_t* operation, const std::wstring& path) {
  if (beforeCall) beforeCall(path);
  if (failAt_ > 0 && --failAt_ == 0) throw Failure(operation, path, L"The fake was told to fail.");
}

FakeFiles::Entry* FakeFiles::Look(const std::wstring& path) {
  const auto found = entries_.find(WithoutBackslash(path));
  return found == entries_.end() ? nullptr : &found->second;
}

FakeFiles::Entry& FakeFiles::Need(const wchar_t* operation, const std::wstring& path, bool folder) {
  Entry* entry = Look(path);
  if (entry == nullptr || entry->info.folder != folder) {
    throw Failure(operation, path, L"The system cannot find the file specified.");
  }
  return *entry;
}

void FakeFiles::NeedWritable(const wchar_t* operation, const std::wstring& path, const Entry& entry) {
  if (entry.info.readOnly) throw Failure(operation, path, L"Access is denied.");
  if (entry.writers > 0) throw Failure(operation, path, L"The file is in use.");
}

void FakeFiles::Put(const std::wstring& path, std::string content) {
  AddFolder(WithoutBackslash(std::wstring(FolderPart(path))));
  Entry& entry = entries_[path];
  entry.info.name = FileNamePart(path);
  entry.content = std::make_shared<std::string>(std::move(content));
}

std::string FakeFiles::Content(const std::wstring& path) const {
  const auto found = entries_.find(path);
  return found == entries_.end() || !found->second.content ? std::string() : *found->second.content;
}

bool FakeFiles::Has(const std::wstring& path) const { return entries_.contains(WithoutBackslash(path)); }

void FakeFiles::SetReadOnly(const std::wstring& path) { entries_.at(path).info.readOnly = true; }

void FakeFiles::AddFolder(const std::wstring& path) {
  if (path.empty() || Has(path)) return;
  AddFolder(WithoutBackslash(std::wstring(FolderPart(path))));
  FileInfo info;
  info.name = FileNamePart(path);
  info.folder = true;
  entries_[path] = Entry{info, nullptr, 0, 0};
}

void FakeFiles::AddLink(const std::wstring& path) {
  AddFolder(path);
  entries_.at(path).info.link = true;
}

void FakeFiles::SetLabel(const std::wstring& drive, bool labelled) {
  if (labelled) {
    labelled_.insert(drive);
  } else {
    labelled_.erase(drive);
  }
}

std::vector<std::wstring> FakeFiles::AllFiles() const {
  std::vector<std::wstring> paths;
  for (const auto& [path, entry] : entries_) {
    if (!entry.info.folder) paths.push_back(path);
  }
  return paths;
}

std::optional<FileInfo> FakeFiles::Find(const std::wstring& path) {
  const Entry* entry = Look(path);
  if (entry == nullptr) return {};
  FileInfo info = entry->info;
  if (entry->content) info.size = entry->content->size();
  return info;
}

std::unique_ptr<File> FakeFiles::Open(const wchar_t* operation, const std::wstring& path, bool writable) {
  Call(operation, path);
  Entry& entry = Need(operation, path, false);
  if (writable) NeedWritable(operation, path, entry);
  return std::make_unique<FakeFile>(*this, path, entry, writable);
}

std::unique_ptr<File> FakeFiles::OpenForReading(const std::wstring& path) { return Open(L"Open", path, false); }
std::unique_ptr<File> FakeFiles::OpenForWriting(const std::wstring& path) { return Open(L"Open", path, true); }

std::unique_ptr<File> FakeFiles::Create(const std::wstring& path) {
  Call(L"Create", path);
  const std::wstring folder = WithoutBackslash(std::wstring(FolderPart(path)));
  Need(L"Create", folder, true);
  if (!ValidName(FileNamePart(path))) throw Failure(L"Create", path, L"The file name is incorrect.");
  if (Entry* entry = Look(path)) {
    if (entry->info.folder) throw Failure(L"Create", path, L"Access is denied.");
    NeedWritable(L"Create", path, *entry);
    entry->content->clear();
  } else {
    Put(path);
  }
  return std::make_unique<FakeFile>(*this, path, *Look(path), true);
}

void FakeFiles::Move(const std::wstring& from, const std::wstring& to) {
  auto node = entries_.extract(from);
  node.key() = to;
  node.mapped().info.name = FileNamePart(to);
  entries_.insert(std::move(node));
}

void FakeFiles::Rename(const std::wstring& from, const std::wstring& to) {
  Call(L"Rename", from);
  const Entry& entry = Need(L"Rename", from, false);
  if (entry.open > 0) throw Failure(L"Rename", from, L"The file is in use.");
  Need(L"Rename", WithoutBackslash(std::wstring(FolderPart(to))), true);
  if (!ValidName(FileNamePart(to))) throw Failure(L"Rename", to, L"The file name is incorrect.");
  if (Has(to) && !EqualIgnoringCase(from, to)) throw Failure(L"Rename", to, L"The file exists.");
  Move(from, to);
}

void FakeFiles::Replace(const std::wstring& from, const std::wstring& over) {
  Call(L"Replace", over);
  const Entry& source = Need(L"Replace", from, false);
  const Entry& target = Need(L"Replace", over, false);
  if (source.open > 0 || target.open > 0) throw Failure(L"Replace", over, L"The file is in use.");
  if (target.info.readOnly) throw Failure(L"Replace", over, L"Access is denied.");
  const std::wstring name = entries_.find(over)->first;
  entries_.erase(entries_.find(over));
  Move(from, name);
}

void FakeFiles::Delete(const std::wstring& path) {
  Call(L"Delete", path);
  const Entry& entry = Need(L"Delete", path, false);
  if (entry.open > 0) throw Failure(L"Delete", path, L"The file is in use.");
  if (entry.info.readOnly) throw Failure(L"Delete", path, L"Access is denied.");
  entries_.erase(entries_.find(path));
}

void FakeFiles::CreateFolder(const std::wstring& path) {
  Call(L"Create folder", path);
  Need(L"Create folder", WithoutBackslash(std::wstring(FolderPart(path))), true);
  if (Has(path)) throw Failure(L"Create folder", path, L"The folder exists.");
  AddFolder(path);
}

void FakeFiles::List(const std::wstring& folder, const std::wstring& pattern,
                     const std::function<bool(const FileInfo&)>& entry) {
  Call(L"List", folder);
  Need(L"List", folder, true);
  const std::wstring prefix = WithBackslash(folder);
  std::vector<FileInfo> found;
  for (auto at = entries_.upper_bound(prefix); at != entries_.end(); ++at) {
    const std::wstring& path = at->first;
    if (!StartsWithIgnoringCase(path, prefix)) break;
    if (path.find(L'\\', prefix.size()) != path.npos || !MatchesPattern(pattern, at->second.info.name)) continue;
    FileInfo info = at->second.info;
    if (at->second.content) info.size = at->second.content->size();
    found.push_back(info);
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

bool FakeFiles::HasVolumeLabel(const std::wstring& drive) { return labelled_.contains(drive); }

}  // namespace tagrix
