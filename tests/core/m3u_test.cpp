#include "core/m3u.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(RelativePath, LeadsFromTheFolderToTheFile) {
  const struct {
    const wchar_t *path, *base, *result;
  } cases[] = {
      {L"C:\\Music\\Album\\01.mp3", L"C:\\Music\\Album", L"01.mp3"},
      {L"C:\\Music\\Album\\01.mp3", L"C:\\Music\\Album\\", L"01.mp3"},
      {L"C:\\Music\\Album\\CD1\\01.mp3", L"C:\\Music\\Album", L"CD1\\01.mp3"},
      {L"C:\\Music\\Other\\01.mp3", L"C:\\Music\\Album\\Lists", L"..\\..\\Other\\01.mp3"},
      {L"C:\\a.mp3", L"C:\\Music", L"..\\a.mp3"},
      {L"D:\\X\\01.mp3", L"C:\\Music", L"D:\\X\\01.mp3"},
      {L"C:\\MUSIC\\a.mp3", L"c:\\music", L"a.mp3"},
      {L"C:\\a.mp3", L"C:\\", L"a.mp3"},
      {L"C:\\Music\\a", L"C:\\Music\\a", L"..\\a"},                            // a file's name never equals a folder
      {L"C:\\M\\X\\Y\\f.mp3", L"C:\\Q\\X\\Y", L"..\\..\\..\\M\\X\\Y\\f.mp3"},  // equal again after a difference
      {L"C:\\\\M\\f.mp3", L"C:\\M", L"..\\\\M\\f.mp3"},
      {L"C:\\a.mp3", L"", L""},
      {L"", L"C:\\", L""},
  };
  for (const auto& [path, base, result] : cases) EXPECT_EQ(RelativePath(path, base), result) << path << base;
}

TEST(PlaylistFile, HoldsOneLineAFileInTheCodePage) {
  TestContext test;
  test.files.Put(L"C:\\M\\list.m3u", "before");
  std::wstring lines = PlaylistLine(L"C:\\M\\caf\u00e9.mp3", L"C:\\M") + PlaylistLine(L"C:\\x.mp3", L"");
  WritePlaylistFile(test.context, L"C:\\M\\list.m3u", lines);
  EXPECT_EQ(test.files.Content(L"C:\\M\\list.m3u"), "caf\xe9.mp3\r\n\r\n");

  WritePlaylistFile(test.context, L"", L"nowhere");
  WritePlaylistFile(test.context, L"C:\\M\\empty.m3u", L"");
  EXPECT_EQ(test.files.AllFiles(), (std::vector<std::wstring>{L"C:\\M\\empty.m3u", L"C:\\M\\list.m3u"}));
  EXPECT_EQ(test.files.Content(L"C:\\M\\empty.m3u"), "");
}

TEST(PlaylistFile, KeepsTheOldOneAndWhatLiesBesideItWhenWritingFails) {
  for (int n = 1; n <= 4; ++n) {
    TestContext test;
    test.files.Put(L"C:\\M\\list.m3u", "before");
    test.files.Put(L"C:\\M\\list.m3u.new", "the user's");
    test.files.FailCall(n);
    EXPECT_THROW(WritePlaylistFile(test.context, L"C:\\M\\list.m3u", L"a\r\n"), Failure) << n;
    EXPECT_EQ(test.files.AllFiles(), (std::vector<std::wstring>{L"C:\\M\\list.m3u", L"C:\\M\\list.m3u.new"}));
    EXPECT_EQ(test.files.Content(L"C:\\M\\list.m3u"), "before");
    EXPECT_EQ(test.files.Content(L"C:\\M\\list.m3u.new"), "the user's");
  }
}

}  // namespace
}  // namespace tagrix
