// An in-memory file system with one drive or more, which can be told to fail.
#ifndef TAGRIX_TESTS_FAKES_FAKE_FILES_H
#define TAGRIX_TESTS_FAKES_FAKE_FILES_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "platform/files.h"

namespace tagrix {

class FakeFiles : public Files {
 public:
  // Drive "C:" exists and has a label.
  FakeFiles() { SetLabel(L"C:", true); }

  // For tests: lays a file (and the folders above it) or changes what is there.
  void Put(const std::wstring& path, std::string content = {});
  std::string Content(const std::wstring& path) const;  // empty when missing
  bool Has(const std::wstring& path) const;
  void SetReadOnly(const std::wstring& path) { entries_.at(path).info.readOnly = true; }
  void AddFolder(const std::wstring& path);
  void AddLink(const std::wstring& path);  // a folder that is a link
  void SetLabel(const std::wstring& drive, bool labelled);
  // The paths of all files, in order.
  std::vector<std::wstring> AllFiles() const;

  // Fails the n-th call from now (1: the next one) of those that may throw; 0 never fails.
  void FailCall(int n) { failAt_ = n; }
  // From that call on nothing happens any more, as after a crash: all of them fail.
  void Die(int n) {
    failAt_ = n;
    dies_ = true;
  }
  // Whether the call that was to fail never came.
  bool Spared() const { return failAt_ > 1; }
  // The machine starts again after a crash. Of what was written and not flushed nothing is there, or all, or what lies
  // in one half of its file.
  enum class Unflushed { Lost, Kept, FirstHalf, SecondHalf };
  void Restart(Unflushed unflushed);
  // Runs before each call that may throw: tests use it to change things in the middle of an operation.
  std::function<void(const std::wstring& path)> beforeCall;
  std::wstring musicFolder = L"C:\\Users\\me\\Music";

  std::optional<FileInfo> Find(const std::wstring& path) override;
  std::unique_ptr<File> OpenForReading(const std::wstring& path) override;
  std::unique_ptr<File> OpenForWriting(const std::wstring& path) override;
  std::unique_ptr<File> Create(const std::wstring& path) override;
  void Rename(const std::wstring& from, const std::wstring& to) override;
  void Replace(const std::wstring& from, const std::wstring& over) override;
  void Delete(const std::wstring& path) override;
  void CreateFolder(const std::wstring& path) override;
  void List(const std::wstring& folder, const std::wstring& pattern,
            const std::function<bool(const FileInfo&)>& entry) override;
  std::vector<std::wstring> Drives() override;
  bool HasVolumeLabel(const std::wstring& drive) override;
  std::wstring MusicFolder() override { return musicFolder; }
  std::wstring DesktopFolder() override { return L"C:\\Desktop"; }

 private:
  class OpenFile;
  struct Entry {
    FileInfo info;
    std::string content, flushed;
    bool labelled = false;  // a drive
    int open = 0;           // how often a file is open,
    bool writing = false;   // and whether once of them for writing
  };

  void Call(Action action, const std::wstring& path);
  Entry& Need(Action action, const std::wstring& path, bool folder);
  std::unique_ptr<File> Open(Action action, const std::wstring& path, bool writable);
  void Move(const std::wstring& from, const std::wstring& to);

  std::map<std::wstring, Entry, LessIgnoringCase> entries_;  // by path, drive roots as "C:"
  int failAt_ = 0;
  bool dies_ = false;
};

}  // namespace tagrix

#endif
