// Files that are written and renamed, and the paths in playlists.
#include <gtest/gtest.h>

#include "fakes/fakes.h"
#include "storage/folder_walk.h"
#include "storage/m3u.h"
#include "storage/renaming.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

TEST(RelativePath, LeadsFromTheFolderToTheFile) {
  const struct {
    const wchar_t *path, *base, *result;
  } cases[] = {
      {L"C:\\Music\\Album\\01.mp3", L"C:\\Music\\Album\\", L"01.mp3"},
      {L"C:\\MUSIC\\a.mp3", L"c:\\music", L"a.mp3"},
      {L"C:\\Music\\a", L"C:\\Music\\a", L"..\\a"},                            // a file's name never equals a folder
      {L"C:\\M\\X\\Y\\f.mp3", L"C:\\Q\\X\\Y", L"..\\..\\..\\M\\X\\Y\\f.mp3"},  // equal again after a difference
      {L"C:\\\\M\\f.mp3", L"C:\\M", L"..\\\\M\\f.mp3"},
      {L"C:\\a.mp3", L"", L""},
  };
  for (const auto& [path, base, result] : cases) EXPECT_EQ(RelativePath(path, base), result) << path << base;
}

TEST(Renaming, TellsANameThatIsTakenFromAFailure) {
  FakeFiles files;
  for (const wchar_t* path : {L"C:\\m\\a.mp3", L"C:\\m\\b.mp3", L"C:\\m\\folder\\c.mp3"}) files.Put(path);
  const struct {
    const wchar_t *from, *to;
    bool fails;
    Renamed result;
  } cases[] = {
      {L"C:\\m\\a.mp3", L"C:\\m\\A.mp3", true, Renamed::Failed},  // the file itself bears that name
      {L"C:\\m\\a.mp3", L"C:\\m\\A.mp3", false, Renamed::Done},
      {L"C:\\m\\a.mp3", L"C:\\m\\B.mp3", false, Renamed::Taken},
      {L"C:\\m\\a.mp3", L"C:\\m\\folder", false, Renamed::Failed},
      {L"C:\\m\\gone.mp3", L"C:\\m\\c.mp3", false, Renamed::Failed},
  };
  for (const auto& expected : cases) {
    files.FailCall(expected.fails ? 1 : 0);
    EXPECT_EQ(TryRename(files, expected.from, expected.to), expected.result) << expected.to;
  }
}

TEST(WritingAFile, LeavesTheOldOneAndWhatLiesBesideItWhereverItFails) {
  bool failed = true;
  for (int n = 1; failed; ++n) {
    TestContext test;
    test.files.Put(L"C:\\m\\list.m3u", "old");
    test.files.Put(L"C:\\m\\list.m3u.new", "the user's");
    test.files.FailCall(n);
    try {
      WriteWholeFile(test.files, L"C:\\m\\list.m3u", "new");
      EXPECT_GT(n, 4);
      failed = false;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Path(), L"C:\\m\\list.m3u");
    }
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u"), failed ? "old" : "new") << n;
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u.new"), "the user's");
    EXPECT_EQ(test.files.AllFiles().size(), 2u) << n;
  }
}

TEST(FolderWalk, GoesLevelByLevelAndKnowsHowFarItIs) {
  FolderWalk walk(L"a");
  const struct {
    const wchar_t* folder;
    int percent;
    Texts inside;
  } steps[] = {{L"a", 0, {L"b", L"c", L"d"}}, {L"b", 25, {L"e"}}, {L"c", 37, {}}, {L"d", 62, {}}, {L"e", 87, {}}};
  for (const auto& [folder, percent, inside] : steps) {
    EXPECT_EQ(walk.Next(), folder);
    EXPECT_EQ(walk.Percent(), percent);
    for (const std::wstring& inner : inside) walk.Add(inner);
  }
  EXPECT_EQ(walk.Next(), std::nullopt);
  EXPECT_EQ(walk.Percent(), 100);
}

TEST(WritingAFile, GivesUpWhereEveryNameBesideItIsTaken) {
  struct Crowded : FakeFiles {
    std::optional<FileInfo> Find(const std::wstring&) override { return FileInfo(); }
  } files;
  try {
    WriteWholeFile(files, L"C:\\list.m3u", "new");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Why(), Cause::NamesTaken);
    EXPECT_EQ(failure.Path(), L"C:\\list.m3u");
  }
}

}  // namespace
}  // namespace tagrix
