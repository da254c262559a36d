// Writing tags in place, safely: what is overwritten is saved first, for all files of a folder at once, and put back
// after a crash.
#ifndef TAGRIX_TAGS_TAG_JOURNAL_H
#define TAGRIX_TAGS_TAG_JOURNAL_H

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tagrix {

// Bytes of a file that are written over; both texts are of one length.
struct TagPatch {
  std::uint64_t offset = 0;
  std::string before, after;
  bool operator==(const TagPatch&) const = default;
};

struct PatchedFile {
  std::wstring name;  // without folder
  std::vector<TagPatch> patches;
};

// The journal of one run over a folder. Its destructor removes it from the disk, unless a file was left half-written.
class TagJournal {
 public:
  // `folder`: with or without a trailing "\". Nothing is written yet.
  TagJournal(Files& files, std::wstring folder);
  ~TagJournal();
  TagJournal(const TagJournal&) = delete;
  TagJournal& operator=(const TagJournal&) = delete;

  // All of them before Save.
  void Add(PatchedFile file) { patched_.push_back(std::move(file)); }
  // Brings what is about to be overwritten onto the disk; nothing without files. Throws Failure: nothing may be
  // patched.
  void Save();

  // Whether exactly these patches of the file are saved.
  bool Holds(const std::wstring& name, const std::vector<TagPatch>& patches) const;
  // Whether any patch of the file is saved.
  bool Knows(const std::wstring& name) const;
  // Writes the file's patches into it. It is open for writing, and on the disk afterwards. Throws Failure; the file is
  // then as it was, or half-written, and the journal stays on the disk.
  void Patch(File& file, const std::wstring& name);
  // It must keep its name until it is put back.
  bool HalfWritten(const std::wstring& name) const;

 private:
  Files& files_;
  std::wstring path_;
  std::vector<PatchedFile> patched_;
  std::vector<std::wstring> halfWritten_;
  bool saved_ = false;

  std::vector<PatchedFile>::const_iterator FindFile(const std::wstring& name) const;
};

// Puts back what a run that never ended had overwritten, and removes its journal; a file that it had finished stays
// finished. To be called before the folder's files are read or written. Throws Failure, and the journal stays.
void RecoverTags(Files& files, const std::wstring& folder);

}  // namespace tagrix

#endif
