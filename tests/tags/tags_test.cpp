// The bytes of both tags, and what is recognised as a tag.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kTagged = L"C:\\m\\a.mp3";

std::string Spaces(std::size_t count) { return std::string(count, ' '); }

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

std::vector<std::wstring> Styles() {
  std::vector<std::wstring> styles(148);
  styles[20] = L"Rock";
  styles[130] = L"ROCK";
  return styles;
}

TEST(Id3v1, IsPaddedWithBlanksAndKeepsTwentyEightCharactersOfTheComment) {
  FakeCodePage codePage;
  const TagFields fields{.title = L"Abc",
                         .track = L" 0255 ",
                         .artist = L"Ärtist",
                         .album = L"An album whose name is too long for its field",
                         .year = L"19745",
                         .comment = std::wstring(29, L'c'),
                         .genre = L"rOck"};
  EXPECT_EQ(BuildID3v1(fields, Styles(), codePage), "Abc" + Spaces(27) + "\xC4rtist" + Spaces(24) +
                                                        "An album whose name is too lon" + "1974" +
                                                        std::string(28, 'c') + Bytes({0, 255, 127}));
  TagFields unknown = fields;
  unknown.genre = L" Rock";
  EXPECT_EQ(BuildID3v1(unknown, Styles(), codePage).back(), 12);
}

TEST(Id3v1, RefusesATrackThatIsNoByte) {
  FakeCodePage codePage;
  for (const wchar_t* track : {L"", L" ", L"7x", L"1.5", L"-1", L"256", L"99999999999999999999"}) {
    EXPECT_THROW(BuildID3v1({L"", track, L"", L"", L"", L"", L""}, {}, codePage), Failure);
  }
}

TEST(Id3v1, IsFoundInFilesOfMoreThan130Bytes) {
  TestContext test;
  const auto found = [&](std::size_t before) {
    test.files.Put(kTagged, std::string(before, 'x') + "TAG" + std::string(125, 'y'));
    return HasID3v1(test.files, kTagged);
  };
  EXPECT_FALSE(found(2));
  EXPECT_TRUE(found(3));
  for (const wchar_t* none : {L"C:\\m\\missing.mp3", L"C:\\m", L"C:"}) EXPECT_FALSE(HasID3v1(test.files, none));
  test.files.SetLabel(L"C:", false);
  EXPECT_FALSE(found(3));
}

TEST(Id3v2, HasSevenFramesAlways) {
  FakeCodePage codePage;
  const std::string zero = Bytes({0}), end = Bytes({0, 0, 0});  // the flags and the text encoding
  const auto size = [](int n) { return Bytes({0, 0, 0, n}); };
  EXPECT_EQ(BuildID3v2({L" Title ", L"7", L"Ä", L"", L"1974", L" c ", L"Rock"}, codePage),
            "ID3" + Bytes({3, 0, 0, 0, 0, 0, 105}) + "TIT2" + size(6) + end + "Title" + "TPE1" + size(2) + end +
                "\xC4" + "TALB" + size(1) + end + "TYER" + size(5) + end + "1974" + "TCON" + size(5) + end + "Rock" +
                "TRCK" + size(2) + end + "7" + "COMM" + size(14) + end + "engComments" + zero + "c");
  EXPECT_EQ(BuildID3v2({}, codePage).size(), 99u);
}

TEST(Id3v2, WritesSizesInItsOwnForm) {
  FakeCodePage codePage;
  const auto sizes = [&](std::size_t title) {
    const std::string tag = BuildID3v2({std::wstring(title, L'x'), L"", L"", L"", L"", L"", L""}, codePage);
    return tag.substr(6, 4) + tag.substr(14, 4);
  };
  EXPECT_EQ(sizes(20000), Bytes({0, 1, 28, 121, 0, 1, 28, 33}));
  EXPECT_EQ(sizes(2097151), Bytes({0, 128, 0, 88, 0, 128, 0, 0}));  // the second byte goes on beyond 127
  EXPECT_THROW(sizes(4194303), Failure);
}

TEST(Id3v2, SizeIsReadAsItIsWritten) {
  TestContext test;
  const auto size = [&](const std::string& content) {
    test.files.Put(kTagged, content);
    return GetID3v2Size(test.files, kTagged);
  };
  EXPECT_EQ(size("ID3" + Bytes({3, 0, 0, 0, 1, 2, 3, 0})), 16384u + 2 * 128 + 3);
  EXPECT_EQ(size("ID3" + Bytes({4, 0, 255, 2, 0, 0, 1, 0})), 2u * 20917152 + 1);
  EXPECT_EQ(size("ID3" + Bytes({3, 0, 0, 0, 1, 2, 3})), 0u);  // 10 bytes
  EXPECT_EQ(size("ID4" + Bytes({3, 0, 0, 0, 1, 2, 3, 0})), 0u);
  EXPECT_EQ(size(""), 0u);
  test.files.SetLabel(L"C:", false);
  EXPECT_EQ(size("ID3" + Bytes({3, 0, 0, 0, 1, 2, 3, 0})), 0u);
}

}  // namespace
}  // namespace tagrix
