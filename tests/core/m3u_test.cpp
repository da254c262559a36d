#include "core/m3u.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(RelativePath, LeadsFromTheFolderToTheFile) {
  const struct {
    const wchar_t *path, *base, *result;
  } cases[] = {
      {L"C:\\Music\\Album\\01.mp3", L"C:\\Music\\Album\\", L"01.mp3"},
      {L"C:\\Music\\Album\\CD1\\01.mp3", L"C:\\Music\\Album", L"CD1\\01.mp3"},
      {L"D:\\X\\01.mp3", L"C:\\Music", L"D:\\X\\01.mp3"},
      {L"C:\\MUSIC\\a.mp3", L"c:\\music", L"a.mp3"},
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
  EXPECT_EQ(test.files.AllFiles().size(), 1u);
}

}  // namespace
}  // namespace tagrix
