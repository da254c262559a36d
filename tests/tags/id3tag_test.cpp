#include "tags/id3tag.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "fakes/fakes.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m & n\\a.mp3";
constexpr const wchar_t* kTemp = L"C:\\m & n\\temp";
constexpr bool kWith = true, kWithout = false;

std::string Noise(std::size_t size) {
  std::string bytes;
  for (std::uint32_t x = 1; bytes.size() < size; x = x * 1664525 + 1013904223) bytes += static_cast<char>(x >> 24);
  return bytes;
}

std::string OldId3v2(const std::string& content, char second = 0, char first = 0) {
  const std::string size{first, second, static_cast<char>(content.size() / 128),
                         static_cast<char>(content.size() % 128)};
  return std::string("ID3\3\0\0", 6) + size + content;
}

// One file to tag, and the bytes that are to come out.
struct Tagging : TestContext {
  TagFields fields{L"Title", L"7", L"Artist", L"Album", L"1974", L"Comment", L"Rock"};
  std::string record = BuildID3v1(fields, {}, codePage);
  std::string id3v2 = BuildID3v2(fields, codePage);

  bool Write(const std::string& content, bool withId3v1, bool withId3v2) {
    files.Put(kPath, content);
    return WriteTags(context, fields, kPath, withId3v1, withId3v2);
  }
  std::string Content() const { return files.Content(kPath); }
};

TEST(WriteTags, WritesId3v1OverTheEnd) {
  Tagging test;
  const std::string audio = Noise(10000);
  EXPECT_TRUE(test.Write(audio, kWith, kWithout));
  EXPECT_EQ(test.Content(), audio.substr(0, 10000 - 128) + "TAG" + test.record);
  EXPECT_TRUE(test.Write(audio + "TAG" + Noise(125), kWith, kWithout));
  EXPECT_EQ(test.Content(), audio + "TAG" + test.record);
  EXPECT_TRUE(test.Write(Noise(128), kWith, kWithout));
  EXPECT_EQ(test.Content(), "TAG" + test.record);
  EXPECT_THROW(test.Write(Noise(127), kWith, kWithout), Failure);
  EXPECT_EQ(test.Content(), Noise(127));
}

TEST(WriteTags, PutsId3v2BeforeTheWholeFile) {
  Tagging test;
  test.files.Put(kTemp, "left over");
  for (const std::size_t size : {0u, 1u, 127u, 3u * 1048576, 3u * 1048576 + 1}) {
    EXPECT_TRUE(test.Write(Noise(size), kWithout, kWith));
    EXPECT_EQ(test.Content(), test.id3v2 + Noise(size)) << size;
  }
  EXPECT_EQ(test.files.AllFiles().size(), 1u);
}

TEST(WriteTags, LeavesTheLastTenBytesOfTheOldId3v2) {
  Tagging test;
  const std::string old = Noise(300), audio = Noise(5000);
  EXPECT_TRUE(test.Write(OldId3v2(old) + audio, kWithout, kWith));
  EXPECT_EQ(test.Content(), test.id3v2 + old.substr(290) + audio);
  test.files.SetLabel(L"C:", false);  // no old tag is seen there
  EXPECT_TRUE(test.Write(OldId3v2(old) + audio, kWithout, kWith));
  EXPECT_EQ(test.Content(), test.id3v2 + OldId3v2(old) + audio);
}

TEST(WriteTags, WritesBoth) {
  Tagging test;
  const std::string old = Noise(300), audio = Noise(2000000);
  EXPECT_TRUE(test.Write(OldId3v2(old) + audio + "TAG" + Noise(125), kWith, kWith));
  EXPECT_EQ(test.Content(), test.id3v2 + old.substr(290) + audio + "TAG" + test.record);
  EXPECT_TRUE(test.Write(OldId3v2(old), kWith, kWith));  // the end lies within the old tag: no audio at all
  EXPECT_EQ(test.Content(), test.id3v2 + ("TAG" + test.record).substr(118));
  EXPECT_TRUE(test.Write(audio, kWithout, kWithout));
  EXPECT_EQ(test.Content(), audio);
}

TEST(WriteTags, RefusesAndWritesNothing) {
  Tagging test;
  const auto refuses = [&](const std::string& content) {
    const bool written = test.Write(content, kWith, kWith);
    return !written && test.Content() == content && test.files.AllFiles().size() == 1;
  };
  EXPECT_TRUE(refuses(OldId3v2(Noise(300)).substr(0, 309)));                    // reaches beyond the end
  EXPECT_FALSE(refuses(OldId3v2(Noise(300))));                                  // just reaches it
  EXPECT_TRUE(refuses(OldId3v2(Noise(300), 0, 1) + std::string(21000000, 0)));  // of unknown size
  EXPECT_TRUE(test.Write(OldId3v2(Noise(300), 9, 1), kWith, kWithout));         // which is nothing to ID3v1
  test.files.Put(kPath, Noise(300));
  test.files.SetReadOnly(kPath);
  for (const wchar_t* path :
       {kPath, L"C:\\m & n", L"C:\\m & n\\b.mp3", L"D:\\a.mp3", L"C:", L"a.mp3", L"\\\\host\\a"}) {
    EXPECT_FALSE(WriteTags(test.context, test.fields, path, kWith, kWith));
  }
  EXPECT_EQ(test.Content(), Noise(300));
  test.files.Put(kTemp, "an audio file of this name would be its own copy");
  EXPECT_FALSE(WriteTags(test.context, test.fields, kTemp, kWith, kWith));
}

// Others may write to the file, or the disk drop what it was given, in the middle of everything.
TEST(WriteTags, NoticesAFileThatBecomesShorter) {
  const std::string audio = Noise(3000000);
  for (const bool source : {true, false}) {
    Tagging test;
    test.files.beforeCall = [&](const std::wstring&) {
      if (test.files.Content(kTemp).size() > (source ? 0 : audio.size()))
        test.files.Put(source ? kPath : kTemp, "short");
    };
    EXPECT_THROW(test.Write(audio, kWithout, kWith), Failure);
    EXPECT_TRUE(test.Content() == (source ? "short" : audio));
    EXPECT_EQ(test.files.AllFiles(), std::vector<std::wstring>{kPath});
  }
}

// Whichever call fails, the file is the old or the finished one and nothing is left beside it.
TEST(WriteTags, LosesNothingWhereverItFails) {
  const std::string old = OldId3v2(Noise(300)) + Noise(2500000);
  int failures = 0, reported = 0;
  for (bool done = false; !done;) {
    Tagging test;
    test.files.FailCall(failures + reported + 1);
    bool failed = false;
    try {
      EXPECT_TRUE(test.Write(old, kWith, kWith));
    } catch (const Failure&) {
      failed = true;
    }
    done = !failed && test.prompts.messages.empty();
    EXPECT_EQ(test.Content().starts_with(test.id3v2), done);
    EXPECT_EQ(test.Content() == old, !done) << failures;
    EXPECT_EQ(test.files.AllFiles().size(), 1u) << failures;
    failures += failed ? 1 : 0;
    if (test.prompts.messages == std::vector<std::wstring>{std::wstring(L"<169> ") + kPath}) ++reported;
  }
  EXPECT_EQ(reported, 1);  // putting it in place
  EXPECT_GT(failures, 10);
}

}  // namespace
}  // namespace tagrix
