#include "storage/m3u.h"

#include <gtest/gtest.h>

namespace tagrix {

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

}  // namespace tagrix
