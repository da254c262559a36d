// Files that somebody else made: audio files and language files.
#include <gtest/gtest.h>

#include <cmath>

#include "audio/mp3.h"
#include "core/failure.h"
#include "core/language.h"
#include "fakes/fakes.h"
#include "fuzz/mutations.h"
#include "tags/id3tag.h"
#include "tags/id3v2.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m\\a.mp3";

TEST(Fuzz, Mp3Duration) {
  Fuzz("mp3", 20000, [](const std::string& content) {
    FakeFiles files;
    files.Put(kPath, content);
    double milliseconds = -1;
    try {
      const bool measured = GetMP3Duration(files, kPath, milliseconds);
      EXPECT_EQ(measured, milliseconds >= 0);
      EXPECT_TRUE(std::isfinite(milliseconds));
    } catch (const Failure&) {
      EXPECT_EQ(milliseconds, -1);
    }
    files.Delete(kPath);  // throws when it has been left open
  });
}

TEST(Fuzz, WriteTags) {
  TestContext test;
  const TagFields fields{L"Title", L"1", L"Artist", L"Album", L"1974", L"Comment", L"Rock"};
  const std::string id3v2 = BuildID3v2(fields, test.codePage);
  Fuzz("mp3", 5000, [&](const std::string& content) {
    test.files.Put(kPath, content);
    const std::uint64_t old = GetID3v2Size(test.files, kPath);
    bool written = false;
    try {
      written = WriteTags(test.context, fields, kPath, true, true);
    } catch (const Failure&) {
      EXPECT_LT(content.size(), 128u);
    }
    if (written) {
      EXPECT_EQ(test.files.Content(kPath).size(), id3v2.size() + content.size() - old);
      EXPECT_TRUE(test.files.Content(kPath).starts_with(id3v2));
    } else {
      EXPECT_EQ(test.files.Content(kPath), content);
    }
    EXPECT_EQ(test.files.AllFiles().size(), 1u);
  });
}

TEST(Fuzz, ParseLanguageFile) {
  FakeCodePage codePage;
  Fuzz("language", 20000, [&](const std::string& content) {
    const std::vector<std::wstring> messages = ParseLanguageFile(codePage.ToText(content));
    std::size_t length = 3 * messages.size();
    for (const std::wstring& message : messages) length += message.size();
    EXPECT_LE(length, content.size());
  });
}

}  // namespace
}  // namespace tagrix
