// What every file port does: the in-memory twin, the one over a Linux folder, and Windows itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "contract/files_cases.h"
#include "core/failure.h"

namespace tagrix {
namespace {

// `Case` makes the port and an empty folder to work in (see files_cases.h).
template <typename Case>
class FilesContract : public testing::Test {
 protected:
  std::wstring At(const std::wstring& name) const { return case_.folder + L"\\" + name; }
  void Put(const std::wstring& path, std::string_view content) { files_.Create(path)->Write(0, content); }
  std::string Content(const std::wstring& path) {
    const auto file = files_.OpenForReading(path);
    std::string content(static_cast<size_t>(file->Size()) + 1, '\0');
    content.resize(file->Read(0, content.data(), content.size()));
    return content;
  }
  bool Has(const std::wstring& path) { return files_.Find(path).has_value(); }
  // The names that a listing yields, sorted.
  std::vector<std::wstring> Names(const std::wstring& folder, const std::wstring& pattern = L"*") {
    std::vector<std::wstring> names;
    files_.List(folder, pattern, [&](const FileInfo& info) {
      names.push_back(info.name);
      return true;
    });
    std::sort(names.begin(), names.end());
    return names;
  }

  Case case_;
  Files& files_ = case_.files;
};

TYPED_TEST_SUITE(FilesContract, FilesCases);

using Names = std::vector<std::wstring>;

TYPED_TEST(FilesContract, FindsWhatIsThereInOneLook) {
  this->Put(this->At(L"Été 01.mp3"), "12345");
  this->files_.CreateFolder(this->At(L"Sub"));
  const auto file = this->files_.Find(this->At(L"éTÉ 01.MP3"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->name, L"Été 01.mp3");
  EXPECT_EQ(file->size, 5U);
  EXPECT_FALSE(file->folder || file->link || file->readOnly);
  for (const wchar_t* path : {L"SUB", L"SUB\\"}) {
    const auto folder = this->files_.Find(this->At(path));
    ASSERT_TRUE(folder) << path;
    EXPECT_TRUE(folder->folder);
    EXPECT_EQ(folder->name, L"Sub");
    EXPECT_EQ(folder->size, 0U);
  }
  for (const wchar_t* path : {L"missing", L"missing\\a.mp3", L"Été 01.mp3\\b", L"Sub\\*", L"*.mp3", L"Été 0?.mp3"}) {
    EXPECT_FALSE(this->Has(this->At(path))) << path;
  }
  EXPECT_FALSE(this->Has(L"Q:\\nothing"));
  EXPECT_FALSE(this->Has(L""));
}

TYPED_TEST(FilesContract, ABareDriveIsItsRoot) {
  for (const wchar_t* root : {L"C:", L"C:\\", L"c:"}) {
    const auto found = this->files_.Find(root);
    ASSERT_TRUE(found) << root;
    EXPECT_TRUE(found->folder);
    EXPECT_EQ(this->Names(root), this->Names(L"C:\\"));
  }
  EXPECT_FALSE(this->Has(L"Q:"));
  const auto drives = this->files_.Drives();
  EXPECT_NE(std::find(drives.begin(), drives.end(), L"C:"), drives.end());
  EXPECT_EQ(std::find(drives.begin(), drives.end(), L"Q:"), drives.end());
  EXPECT_FALSE(this->files_.HasVolumeLabel(L"Q:"));
  EXPECT_TRUE(this->files_.HasVolumeLabel(L"C:"));
}

TYPED_TEST(FilesContract, ReadsAndWritesAtAnyPlace) {
  const std::wstring path = this->At(L"a.bin");
  {
    const auto file = this->files_.Create(path);
    file->Write(0, "hello");
    file->Write(8, "x");  // leaves a gap of zeros
    file->Write(1, "E");
    file->Flush();
    EXPECT_EQ(file->Size(), 9U);
    char bytes[4] = "???";
    EXPECT_EQ(file->Read(7, bytes, 4), 2U);  // a created file can be read, too
    EXPECT_EQ(std::string(bytes, 2), std::string("\0x", 2));
    EXPECT_EQ(file->Read(9, bytes, 4), 0U);
    EXPECT_EQ(file->Read(1'000'000'000'000, bytes, 4), 0U);
  }
  EXPECT_EQ(this->Content(path), std::string("hEllo\0\0\0x", 9));
  this->files_.OpenForWriting(path)->Write(9, "yz");
  EXPECT_EQ(this->Content(path), std::string("hEllo\0\0\0xyz", 11));
  EXPECT_EQ(this->files_.Find(path)->size, 11U);
  this->files_.Create(path);
  EXPECT_EQ(this->Content(path), "");
  EXPECT_THROW(this->files_.OpenForReading(path)->Write(0, "no"), Failure);
}

TYPED_TEST(FilesContract, SaysWhyItFailed) {
  try {
    this->files_.OpenForReading(this->At(L"missing.mp3"));
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_FALSE(failure.Operation().empty());
    EXPECT_EQ(failure.Path(), this->At(L"missing.mp3"));
    EXPECT_GT(failure.Reason().size(), 5U);
    EXPECT_EQ(failure.Reason().find_first_of(L"\r\n"), failure.Reason().npos);
  }
}

TYPED_TEST(FilesContract, FailsWhereNothingIs) {
  this->files_.CreateFolder(this->At(L"Sub"));
  this->Put(this->At(L"a"), "a");
  const std::wstring missing = this->At(L"missing");
  EXPECT_THROW(this->files_.OpenForReading(missing), Failure);
  EXPECT_THROW(this->files_.OpenForWriting(missing), Failure);
  EXPECT_THROW(this->files_.Create(missing + L"\\a"), Failure);
  EXPECT_THROW(this->files_.Create(this->At(L"a?b")), Failure);
  EXPECT_THROW(this->files_.Rename(missing, this->At(L"b")), Failure);
  EXPECT_THROW(this->files_.Rename(this->At(L"a"), missing + L"\\b"), Failure);
  EXPECT_THROW(this->files_.Rename(this->At(L"a"), this->At(L"a<b")), Failure);
  EXPECT_THROW(this->files_.Replace(missing, this->At(L"a")), Failure);
  EXPECT_THROW(this->files_.Delete(missing), Failure);
  EXPECT_THROW(this->files_.Delete(this->At(L"Sub")), Failure);
  EXPECT_THROW(this->files_.CreateFolder(missing + L"\\b"), Failure);
  EXPECT_THROW(this->files_.CreateFolder(this->At(L"sub\\")), Failure);
  EXPECT_THROW(this->files_.CreateFolder(this->At(L"a")), Failure);
  EXPECT_THROW(this->Names(missing), Failure);
  EXPECT_THROW(this->Content(this->At(L"Sub")), Failure);
  EXPECT_THROW(this->files_.OpenForReading(L""), Failure);
  EXPECT_EQ(this->Names(this->case_.folder), (Names{L"Sub", L"a"}));
  EXPECT_EQ(this->Content(this->At(L"a")), "a");
}

TYPED_TEST(FilesContract, RenamesButNeverOverAnotherFile) {
  this->files_.CreateFolder(this->At(L"Sub"));
  this->Put(this->At(L"a.mp3"), "a");
  this->Put(this->At(L"b.mp3"), "b");
  this->files_.Rename(this->At(L"A.mp3"), this->At(L"c.mp3"));
  EXPECT_EQ(this->Names(this->case_.folder), (Names{L"Sub", L"b.mp3", L"c.mp3"}));
  this->files_.Rename(this->At(L"c.mp3"), this->At(L"SUB\\Deep.mp3"));
  EXPECT_EQ(this->Names(this->At(L"sub")), Names{L"Deep.mp3"});
  EXPECT_THROW(this->files_.Rename(this->At(L"b.mp3"), this->At(L"Sub\\Deep.mp3")), Failure);
  EXPECT_THROW(this->files_.Rename(this->At(L"b.mp3"), this->At(L"Sub")), Failure);
  EXPECT_EQ(this->Content(this->At(L"b.mp3")), "b");
  EXPECT_EQ(this->Content(this->At(L"Sub\\Deep.mp3")), "a");
  this->files_.Rename(this->At(L"b.mp3"), this->At(L"b.mp3"));
  EXPECT_EQ(this->Content(this->At(L"b.mp3")), "b");
}

TYPED_TEST(FilesContract, RenamesToAnotherLetterCase) {
  this->Put(this->At(L"song.mp3"), "a");
  this->files_.Rename(this->At(L"song.mp3"), this->At(L"Song.MP3"));
  const Names names = this->Names(this->case_.folder);
  if (TypeParam::Lenient() && names == Names{L"song.mp3"}) {
    GTEST_SKIP() << "This Wine reports success for a rename that only changes letter case, and changes nothing.";
  }
  EXPECT_EQ(names, Names{L"Song.MP3"});
}

TYPED_TEST(FilesContract, NamesThatDifferInCaseClash) {
  if (!TypeParam::kCaseClash) GTEST_SKIP() << "A real Linux folder doesn't look for other spellings of a new name.";
  this->Put(this->At(L"a.mp3"), "a");
  this->Put(this->At(L"B.mp3"), "b");
  EXPECT_THROW(this->files_.Rename(this->At(L"a.mp3"), this->At(L"b.MP3")), Failure);
  EXPECT_THROW(this->files_.CreateFolder(this->At(L"A.MP3")), Failure);
  this->Put(this->At(L"b.MP3"), "new");
  EXPECT_EQ(this->Names(this->case_.folder), (Names{L"B.mp3", L"a.mp3"}));
  EXPECT_EQ(this->Content(this->At(L"B.mp3")), "new");
}

TYPED_TEST(FilesContract, ReplacesInOneStep) {
  this->Put(this->At(L"new.tmp"), "new");
  this->Put(this->At(L"old.mp3"), "old and longer");
  this->files_.Replace(this->At(L"new.tmp"), this->At(L"OLD.mp3"));
  EXPECT_EQ(this->Content(this->At(L"old.mp3")), "new");
  EXPECT_FALSE(this->Has(this->At(L"new.tmp")));
  EXPECT_EQ(this->Names(this->case_.folder).size(), 1U);
}

TYPED_TEST(FilesContract, ReadOnlyFilesAreLeftAlone) {
  const std::wstring path = this->At(L"a.mp3");
  this->Put(path, "a");
  this->case_.SetReadOnly(path);
  EXPECT_TRUE(this->files_.Find(path)->readOnly);
  this->files_.List(this->case_.folder, L"a*", [](const FileInfo& info) {
    EXPECT_TRUE(info.readOnly);
    return true;
  });
  EXPECT_EQ(this->Content(path), "a");
  EXPECT_THROW(this->files_.Delete(path), Failure);
  EXPECT_EQ(this->Content(path), "a");
  this->files_.Rename(path, this->At(L"b.mp3"));  // its content is protected, not its name
  EXPECT_EQ(this->Content(this->At(L"b.mp3")), "a");
}

TYPED_TEST(FilesContract, ReadOnlyFilesCannotBeWritten) {
  const std::wstring path = this->At(L"a.mp3");
  this->Put(path, "a");
  this->Put(this->At(L"new.tmp"), "new");
  this->case_.SetReadOnly(path);
  if (TypeParam::Lenient()) GTEST_SKIP() << "This Wine lets read-only files be written.";
  EXPECT_THROW(this->files_.OpenForWriting(path), Failure);
  EXPECT_THROW(this->files_.Create(path), Failure);
  EXPECT_THROW(this->files_.Replace(this->At(L"new.tmp"), path), Failure);
  EXPECT_EQ(this->Content(path), "a");
  EXPECT_EQ(this->Content(this->At(L"new.tmp")), "new");
}

TYPED_TEST(FilesContract, OpenFilesCanBeReadButNotMoved) {
  if (!TypeParam::kLocks) GTEST_SKIP() << "Linux lets an open file be renamed and deleted.";
  const std::wstring path = this->At(L"a.mp3");
  this->Put(path, "a");
  this->Put(this->At(L"new.tmp"), "new");
  {
    const auto reader = this->files_.OpenForReading(path);
    EXPECT_EQ(this->Content(path), "a");
    EXPECT_THROW(this->files_.Rename(path, this->At(L"b.mp3")), Failure);
    EXPECT_THROW(this->files_.Replace(this->At(L"new.tmp"), path), Failure);
    EXPECT_THROW(this->files_.Delete(path), Failure);
    const auto writer = this->files_.OpenForWriting(path);  // a player may have the file open
    writer->Write(0, "b");
    EXPECT_EQ(this->Content(path), "b");
    EXPECT_THROW(this->files_.OpenForWriting(path), Failure);
  }
  EXPECT_EQ(this->Content(this->At(L"new.tmp")), "new");
  this->files_.Replace(this->At(L"new.tmp"), path);
  this->files_.Delete(path);
  EXPECT_FALSE(this->Has(path));
}

TYPED_TEST(FilesContract, ListsNamesKindsAndSizes) {
  const std::wstring folder = this->At(L"Sub");
  this->files_.CreateFolder(folder);
  EXPECT_EQ(this->Names(folder), Names{});
  this->Put(folder + L"\\one.mp3", "1");
  this->Put(folder + L"\\Two.MP3", "22");
  this->Put(folder + L"\\none", "");
  this->files_.CreateFolder(folder + L"\\Deep");
  this->Put(folder + L"\\Deep\\hidden.mp3", "");
  EXPECT_EQ(this->Names(folder), (Names{L"Deep", L"Two.MP3", L"none", L"one.mp3"}));
  EXPECT_EQ(this->Names(folder + L"\\"), (Names{L"Deep", L"Two.MP3", L"none", L"one.mp3"}));
  EXPECT_EQ(this->Names(folder, L"*.*"), (Names{L"Deep", L"Two.MP3", L"none", L"one.mp3"}));
  EXPECT_EQ(this->Names(folder, L"*.mp3"), (Names{L"Two.MP3", L"one.mp3"}));
  EXPECT_EQ(this->Names(folder, L"*.ogg"), Names{});
  int calls = 0;
  this->files_.List(folder, L"*", [&](const FileInfo& info) {
    const bool isFolder = info.name == L"Deep";
    const std::uint64_t size = info.name == L"one.mp3" ? 1 : info.name == L"Two.MP3" ? 2 : 0;
    EXPECT_EQ(info.folder, isFolder) << testing::PrintToString(info.name);
    EXPECT_EQ(info.size, size) << testing::PrintToString(info.name);
    EXPECT_FALSE(info.link || info.readOnly);
    return ++calls < 2;
  });
  EXPECT_EQ(calls, 2);
}

TYPED_TEST(FilesContract, LinksAreMarked) {
  this->files_.CreateFolder(this->At(L"Sub"));
  if (!this->case_.AddLink(this->At(L"Sub\\up"))) GTEST_SKIP() << "No link can be made here.";
  EXPECT_TRUE(this->files_.Find(this->At(L"Sub\\up"))->link);
  int calls = 0;
  this->files_.List(this->At(L"Sub"), L"*", [&](const FileInfo& info) {
    EXPECT_TRUE(info.link && info.folder);
    return ++calls > 0;
  });
  EXPECT_EQ(calls, 1);
}

TYPED_TEST(FilesContract, PathsMayBeLongerThan260Characters) {
  std::wstring folder = this->case_.folder;
  while (folder.size() < 400) {
    folder += L"\\" + std::wstring(60, L'x');
    this->files_.CreateFolder(folder);
  }
  const std::wstring path = folder + L"\\a long way down.mp3", other = folder + L"\\b.mp3";
  this->Put(path, "a");
  ASSERT_TRUE(this->Has(path));
  EXPECT_EQ(this->files_.Find(path)->name, L"a long way down.mp3");
  EXPECT_EQ(this->Names(folder), Names{L"a long way down.mp3"});
  this->files_.Rename(path, other);
  this->Put(path, "new");
  this->files_.Replace(path, other);
  EXPECT_EQ(this->Content(other), "new");
  this->files_.Delete(other);
  EXPECT_EQ(this->Names(folder), Names{});
}

}  // namespace
}  // namespace tagrix
