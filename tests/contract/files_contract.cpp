// What every file port does: the in-memory twin, and Windows itself.
#include <algorithm>
#include <vector>

#include "base/failure.h"
#include "contract/cases.h"

namespace tagrix {
namespace {

using Names = std::vector<std::wstring>;

class FilesContract : public testing::Test {
 protected:
  std::wstring At(const std::wstring& name) const { return case_.folder + L"\\" + name; }
  void Put(const std::wstring& path, std::string_view content) { files_.Create(path)->Write(0, content); }
  std::string Content(const std::wstring& path) { return ReadWholeFile(files_, path); }
  bool Has(const std::wstring& path) { return files_.Find(path).has_value(); }
  // The names that a listing yields, sorted.
  Names Listed(const std::wstring& folder, const std::wstring& pattern = L"*") {
    Names names;
    files_.List(folder, pattern, [&](const FileInfo& info) {
      names.push_back(info.name);
      return true;
    });
    std::sort(names.begin(), names.end());
    return names;
  }

  FilesCase case_;
  Files& files_ = case_.files;
};

TEST_F(FilesContract, FindsWhatIsThereInOneLook) {
  Put(At(L"Été 01.mp3"), "12345");
  files_.CreateFolder(At(L"Sub"));
  const auto file = files_.Find(At(L"éTÉ 01.MP3"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->name, L"Été 01.mp3");
  EXPECT_EQ(file->size, 5U);
  EXPECT_FALSE(file->folder || file->link || file->readOnly);
  const auto folder = files_.Find(At(L"SUB\\"));
  ASSERT_TRUE(folder);
  EXPECT_TRUE(folder->folder);
  EXPECT_EQ(folder->name, L"Sub");
  for (const wchar_t* path : {L"missing", L"missing\\a.mp3", L"Été 01.mp3\\b", L"Sub\\*", L"*.mp3", L"Été 0?.mp3"}) {
    EXPECT_FALSE(Has(At(path))) << path;
  }
}

TEST_F(FilesContract, ABareDriveIsItsRoot) {
  for (const wchar_t* root : {L"C:", L"c:\\"}) {
    const auto found = files_.Find(root);
    ASSERT_TRUE(found) << root;
    EXPECT_TRUE(found->folder);
    EXPECT_EQ(Listed(root), Listed(L"C:\\"));
  }
  const Names drives = files_.Drives();
  EXPECT_EQ(std::count(drives.begin(), drives.end(), L"C:"), 1);
  EXPECT_TRUE(files_.HasVolumeLabel(L"C:"));
  EXPECT_FALSE(files_.HasVolumeLabel(L"Q:"));
}

#ifdef _WIN32
TEST_F(FilesContract, TheRootOfANetworkShareIsAFolder) {
  const std::wstring root = case_.ShareRoot();
  if (root.empty()) GTEST_SKIP() << "No share is there.";
  EXPECT_FALSE(files_.Find(root + L"\\missing"));
  for (const std::wstring& path : {root, root + L"\\"}) {
    const auto found = files_.Find(path);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->folder);
    EXPECT_NO_THROW(Listed(path));
  }
}
#endif

TEST_F(FilesContract, ReadsAndWritesAtAnyPlace) {
  const std::wstring path = At(L"a.bin");
  {
    const auto file = files_.Create(path);
    file->Write(0, "hello");
    file->Write(8, "x");  // leaves a gap of zeros
    file->Write(1, "E");
    file->Flush();
    EXPECT_EQ(file->Size(), 9U);
    char bytes[4] = "???";
    EXPECT_EQ(file->Read(7, bytes, 4), 2U);  // a created file can be read, too
    EXPECT_EQ(file->Read(1'000'000'000'000, bytes, 4), 0U);
  }
  files_.OpenForWriting(path)->Write(9, "yz");
  EXPECT_EQ(Content(path), std::string("hEllo\0\0\0xyz", 11));
  EXPECT_EQ(files_.Find(path)->size, 11U);
  EXPECT_THROW(files_.OpenForReading(path)->Write(0, "no"), Failure);
  files_.Create(path);
  EXPECT_EQ(Content(path), "");
  EXPECT_EQ(files_.Find(path)->size, 0U);
}

TEST_F(FilesContract, FailsWhereNothingIsAndSaysWhy) {
  files_.CreateFolder(At(L"Sub"));
  Put(At(L"a"), "a");
  const std::wstring missing = At(L"missing");
  EXPECT_THROW(files_.OpenForWriting(missing), Failure);
  EXPECT_THROW(files_.Create(missing + L"\\a"), Failure);
  EXPECT_THROW(files_.Rename(missing, At(L"b")), Failure);
  EXPECT_THROW(files_.Rename(At(L"a"), missing + L"\\b"), Failure);
  EXPECT_THROW(files_.Replace(missing, At(L"a")), Failure);
  EXPECT_THROW(files_.Delete(missing), Failure);
  EXPECT_THROW(files_.Delete(At(L"Sub")), Failure);
  EXPECT_THROW(files_.CreateFolder(missing + L"\\b"), Failure);
  EXPECT_THROW(files_.CreateFolder(At(L"A")), Failure);
  EXPECT_THROW(Listed(missing), Failure);
  EXPECT_THROW(Content(At(L"Sub")), Failure);
  EXPECT_EQ(Listed(case_.folder), (Names{L"Sub", L"a"}));
  EXPECT_EQ(Content(At(L"a")), "a");
  try {
    files_.OpenForReading(missing);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Tried(), Action::Open);
    EXPECT_EQ(failure.Path(), missing);
    EXPECT_GT(failure.Reason().size(), 5U);
    EXPECT_EQ(failure.Reason().find_first_of(L"\r\n"), failure.Reason().npos);
  }
}

TEST_F(FilesContract, NothingIsCalledLikeADeviceOrByARefusedCharacter) {
  Put(At(L"a"), "a");
  using std::string_literals::operator""s;
  for (const auto& name :
       {L"CON"s, L"nul.mp3"s, L"lpt\u00B2 .x"s, L"b?"s, L"b:c"s, L"b<"s, L"b*"s, L"b\tc"s, L"a\0b"s}) {
    SCOPED_TRACE(testing::PrintToString(name));
    const std::wstring path = At(name);
    EXPECT_FALSE(Has(path));
    EXPECT_THROW(files_.OpenForReading(path), Failure);
    EXPECT_THROW(files_.OpenForWriting(path), Failure);
    EXPECT_THROW(files_.Create(path), Failure);
    EXPECT_THROW(files_.CreateFolder(path), Failure);
    EXPECT_THROW(files_.Rename(At(L"a"), path), Failure);
    EXPECT_THROW(files_.Replace(At(L"a"), path), Failure);
    EXPECT_THROW(files_.Delete(path), Failure);
    EXPECT_THROW(Listed(path), Failure);
  }
  EXPECT_EQ(Listed(case_.folder), Names{L"a"});
}

#ifdef _WIN32

TEST_F(FilesContract, PathsMayBeLongerThan260Characters) {
  std::wstring folder = case_.folder;
  while (folder.size() < 400) {
    folder += L"\\" + std::wstring(60, L'x');
    files_.CreateFolder(folder);
  }
  const std::wstring path = folder + L"\\a long way down.mp3", other = folder + L"\\b.mp3";
  Put(path, "a");
  ASSERT_TRUE(Has(path + L". "));
  EXPECT_EQ(Listed(folder), Names{L"a long way down.mp3"});
  files_.Rename(path, other);
  Put(path, "new");
  files_.Replace(path, other);
  EXPECT_EQ(Content(other), "new");
  files_.Delete(other);
  EXPECT_EQ(Listed(folder), Names{});
}

#endif

TEST_F(FilesContract, RenamesNeverOverAnotherFileUnlessToldToReplace) {
  files_.CreateFolder(At(L"Sub"));
  Put(At(L"a.mp3"), "a");
  Put(At(L"B.mp3"), "b");
  EXPECT_THROW(files_.Rename(At(L"a.mp3"), At(L"b.MP3")), Failure);
  EXPECT_THROW(files_.Rename(At(L"a.mp3"), At(L"Sub")), Failure);
  files_.Rename(At(L"A.mp3"), At(L"SUB\\Deep.mp3"));
  EXPECT_EQ(Listed(At(L"sub")), Names{L"Deep.mp3"});
  Put(At(L"b.MP3"), "new");  // the same file
  EXPECT_EQ(Listed(case_.folder), (Names{L"B.mp3", L"Sub"}));
  EXPECT_EQ(Content(At(L"B.mp3")), "new");
  files_.Replace(At(L"Sub\\Deep.mp3"), At(L"b.mp3"));  // in one step
  EXPECT_EQ(Content(At(L"B.mp3")), "a");
  EXPECT_EQ(Listed(At(L"Sub")), Names{});
  files_.Rename(At(L"B.mp3"), At(L"b.MP3"));
  if (FilesCase::Lenient() && Listed(case_.folder) == Names{L"B.mp3", L"Sub"}) {
    GTEST_SKIP() << "This Wine reports success for a rename that only changes letter case, and changes nothing.";
  }
  EXPECT_EQ(Listed(case_.folder), (Names{L"Sub", L"b.MP3"}));
}

TEST_F(FilesContract, ReadOnlyFilesAreLeftAlone) {
  const std::wstring path = At(L"b.mp3");
  Put(At(L"a.mp3"), "a");
  Put(At(L"new.tmp"), "new");
  case_.SetReadOnly(At(L"a.mp3"));
  files_.Rename(At(L"a.mp3"), path);  // its content is protected, not its name
  EXPECT_TRUE(files_.Find(path)->readOnly);
  EXPECT_THROW(files_.Delete(path), Failure);
  EXPECT_EQ(Content(path), "a");
  if (FilesCase::Lenient()) GTEST_SKIP() << "This Wine lets read-only files be written.";
  EXPECT_THROW(files_.OpenForWriting(path), Failure);
  EXPECT_THROW(files_.Create(path), Failure);
  EXPECT_THROW(files_.Replace(At(L"new.tmp"), path), Failure);
  EXPECT_EQ(Content(path), "a");
  EXPECT_EQ(Content(At(L"new.tmp")), "new");
}

TEST_F(FilesContract, OpenFilesCanBeReadButNotMoved) {
  const std::wstring path = At(L"a.mp3");
  Put(path, "a");
  Put(At(L"new.tmp"), "new");
  {
    const auto reader = files_.OpenForReading(path);
    EXPECT_EQ(Content(path), "a");
    EXPECT_THROW(files_.Rename(path, At(L"b.mp3")), Failure);
    EXPECT_THROW(files_.Replace(At(L"new.tmp"), path), Failure);
    EXPECT_THROW(files_.Delete(path), Failure);
    const auto writer = files_.OpenForWriting(path);  // a player may have the file open
    writer->Write(0, "b");
    EXPECT_EQ(Content(path), "b");
    EXPECT_THROW(files_.OpenForWriting(path), Failure);
    EXPECT_THROW(files_.Create(path), Failure);
  }
  files_.Replace(At(L"new.tmp"), path);
  files_.Delete(path);
  EXPECT_EQ(Listed(case_.folder), Names{});
}

TEST_F(FilesContract, ListsNamesKindsAndSizes) {
  const std::wstring folder = At(L"Sub");
  files_.CreateFolder(folder);
  EXPECT_EQ(Listed(folder), Names{});
  Put(folder + L"\\Two.MP3", "22");
  Put(folder + L"\\none", "");
  files_.CreateFolder(folder + L"\\Deep");
  Put(folder + L"\\Deep\\hidden.mp3", "");
  EXPECT_EQ(Listed(folder + L"\\", L"*.*"), (Names{L"Deep", L"Two.MP3", L"none"}));
  EXPECT_EQ(Listed(folder, L"*.mp3"), (Names{L"Two.MP3"}));
  EXPECT_EQ(Listed(folder, L"*.ogg"), Names{});
  int calls = 0;
  files_.List(folder, L"*", [&](const FileInfo& info) {
    EXPECT_EQ(info.folder, info.name == L"Deep");
    EXPECT_EQ(info.size, info.name == L"Two.MP3" ? 2U : 0U);
    EXPECT_FALSE(info.link || info.readOnly);
    return ++calls < 2;
  });
  EXPECT_EQ(calls, 2);
}

TEST_F(FilesContract, LinksAreMarked) {
  files_.CreateFolder(At(L"Sub"));
  if (!case_.AddLink(At(L"Sub\\up"))) GTEST_SKIP() << "No link can be made here.";
  EXPECT_TRUE(files_.Find(At(L"Sub\\up"))->link);
  EXPECT_EQ(Listed(At(L"Sub")), Names{L"up"});
}

}  // namespace
}  // namespace tagrix
