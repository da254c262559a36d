#include "tags/id3tag.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
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
  QuietProgress progress;
  std::string record = BuildID3v1(fields, {}, codePage);
  std::string id3v2 = BuildID3v2(fields, codePage);

  bool Write(const std::string& content, bool withId3v1, bool withId3v2) {
    files.Put(kPath, content);
    return WriteTags({files, codePage, {}}, fields, kPath, withId3v1, withId3v2, progress);
  }
  std::string Content() const { return files.Content(kPath); }
};

TEST(WriteTags, PutsId3v2BeforeTheFileAndId3v1OverItsEnd) {
  Tagging test;
  test.files.Put(kTemp, "left over");
  const std::string &v2 = test.id3v2, v1 = "TAG" + test.record, oldV1 = "TAG" + Noise(125);
  const std::string tag = Noise(300), oldV2 = OldId3v2(tag), audio = Noise(2000000);
  const std::string rest = tag.substr(290);  // of an old tag its last ten bytes are left
  const struct {
    std::string before;
    bool withId3v1, withId3v2;
    std::string after;
  } cases[] = {{audio + oldV1, kWith, kWithout, audio + v1},
               {Noise(10000), kWith, kWithout, Noise(10000 - 128) + v1},
               {Noise(128), kWith, kWithout, v1},
               {"", kWithout, kWith, v2},
               {Noise(3 * 1048576), kWithout, kWith, v2 + Noise(3 * 1048576)},
               {oldV2 + audio, kWithout, kWith, v2 + rest + audio},
               {oldV2 + audio + oldV1, kWith, kWith, v2 + rest + audio + v1},
               {oldV2, kWith, kWith, v2 + v1.substr(118)},  // the end lies within the old tag: no audio at all
               {audio, kWithout, kWithout, audio}};
  for (const auto& [before, withId3v1, withId3v2, after] : cases) {
    EXPECT_TRUE(test.Write(before, withId3v1, withId3v2));
    EXPECT_TRUE(test.Content() == after) << before.size();
  }
  EXPECT_THROW(test.Write(Noise(127), kWith, kWithout), Failure);
  EXPECT_EQ(test.Content(), Noise(127));
  test.files.SetLabel(L"C:", false);  // no old tag is seen there
  EXPECT_TRUE(test.Write(oldV2 + audio, kWithout, kWith));
  EXPECT_TRUE(test.Content() == v2 + oldV2 + audio);
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
  test.files.Put(kPath, Noise(300));
  test.files.SetReadOnly(kPath);
  for (const wchar_t* path : {kPath, L"C:\\m & n", L"C:\\m & n\\b.mp3", L"C:", L"a.mp3", L"\\\\host\\a"}) {
    EXPECT_FALSE(WriteTags({test.files, test.codePage, {}}, test.fields, path, kWith, kWith, test.progress));
  }
  EXPECT_EQ(test.Content(), Noise(300));
  test.files.Put(kTemp, "an audio file of this name would be its own copy");
  EXPECT_FALSE(WriteTags({test.files, test.codePage, {}}, test.fields, kTemp, kWith, kWith, test.progress));
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
    EXPECT_EQ(test.files.AllFiles(), Texts{kPath});
  }
}

// Whichever call fails, the file is the old or the finished one and nothing is left beside it.
TEST(WriteTags, LosesNothingWhereverItFails) {
  const std::string old = OldId3v2(Noise(300)) + Noise(2500000);
  int failures = 0, inPlace = 0;
  for (bool done = false; !done;) {
    Tagging test;
    test.files.FailCall(failures + 1);
    try {
      EXPECT_TRUE(test.Write(old, kWith, kWith));
      done = true;
    } catch (const Failure& failure) {
      ++failures;
      if (failure.Tried() == Action::Replace) ++inPlace;
    }
    EXPECT_EQ(test.Content().starts_with(test.id3v2), done);
    EXPECT_EQ(test.Content() == old, !done) << failures;
    EXPECT_EQ(test.files.AllFiles().size(), 1u) << failures;
  }
  EXPECT_EQ(inPlace, 1);
  EXPECT_GT(failures, 10);
}

}  // namespace
}  // namespace tagrix
