// Whatever happens in the middle of an Apply by the standard, every file is the original or the finished one.
#include "tags/tag_journal.h"

#include <gtest/gtest.h>

#include <map>

#include "base/failure.h"
#include "base/utf8.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "session/apply.h"

namespace tagrix {
namespace {

struct Silent : ApplyWatcher {
  void Tell(const Incident&) override {}
  void NameChanged(int) override {}
  bool MayReplacePlaylist(const std::wstring&) override { return true; }
  std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons&) override { return TagStyle::Standard; }
};

constexpr const wchar_t* kFolder = L"C:\\M";
const std::wstring kNames[] = {L"a.mp3", L"b.mp3", L"c.mp3"};

using Unflushed = FakeFiles::Unflushed;
constexpr Unflushed kEveryUnflushed[] = {Unflushed::Lost, Unflushed::Kept, Unflushed::FirstHalf, Unflushed::SecondHalf};

void ApplyTitles(Files& files, const std::wstring& title) {
  FakeCodePage codePage;
  QuietProgress progress;
  Silent watcher;
  AlbumSession session;
  session.folder = kFolder;
  session.disc = {L"Band", L"Live", L"Rock", L"1999", {}};
  for (const std::wstring& name : kNames) {
    session.files.push_back({name});
    session.disc.tracks.push_back({title + name});
  }
  ApplyOrder order;
  order.id3v1 = order.id3v2 = true;
  try {
    Apply(session, order, {files, codePage, {}}, progress, watcher);
  } catch (const Failure&) {
  }
}

FakeFiles Untagged() {
  FakeFiles files;
  for (const std::wstring& name : kNames) files.Put(L"C:\\M\\" + name, ToUtf8(name) + std::string(5000, 's'));
  return files;
}

using Contents = std::map<std::wstring, std::string>;
Contents ContentsOf(const FakeFiles& files) {
  Contents contents;
  for (const std::wstring& name : kNames) contents[name] = files.Content(L"C:\\M\\" + name);
  return contents;
}

void ExpectOneOf(const FakeFiles& files, const Contents& before, const Contents& after) {
  for (const auto& [name, content] : ContentsOf(files)) {
    EXPECT_TRUE(content == before.at(name) || content == after.at(name)) << ToUtf8(name);
  }
  EXPECT_FALSE(files.Has(L"C:\\M\\tagrix.journal"));
}

// Both ways of writing: anew, and in place.
struct Interrupted : testing::TestWithParam<bool> {
  Interrupted() {
    if (GetParam()) ApplyTitles(start, L"One ");
    before = ContentsOf(start);
    FakeFiles finished = start;
    ApplyTitles(finished, L"Another title of ");
    after = ContentsOf(finished);
  }
  FakeFiles start = Untagged();
  Contents before, after;
};

// The program ends at a call, and again while it puts back what was left.
TEST_P(Interrupted, ByCrashes) {
  int putBack = 0;
  bool done = false;
  for (int n = 1; !done; ++n) {
    for (const Unflushed unflushed : kEveryUnflushed) {
      SCOPED_TRACE(testing::Message() << n << ", " << static_cast<int>(unflushed));
      FakeFiles crashed = start;
      crashed.Die(n);
      ApplyTitles(crashed, L"Another title of ");
      done = crashed.Spared();
      crashed.Restart(unflushed);
      for (int again = 1; again < 12; ++again) {
        FakeFiles files = crashed;
        files.Die(again);
        try {
          RecoverTags(files, kFolder);
        } catch (const Failure&) {
        }
        files.Restart(unflushed);
        RecoverTags(files, kFolder);
        ExpectOneOf(files, before, after);
        if (ContentsOf(files) != ContentsOf(crashed)) ++putBack;
      }
    }
  }
  EXPECT_EQ(putBack > 0, GetParam());
}

TEST_P(Interrupted, ByFailures) {
  bool done = false;
  for (int n = 1; !done; ++n) {
    FakeFiles files = start;
    files.FailCall(n);
    ApplyTitles(files, L"Another title of ");
    done = files.Spared();
    files.FailCall(0);
    RecoverTags(files, kFolder);  // where the journal couldn't be deleted
    ExpectOneOf(files, before, after);
  }
}

INSTANTIATE_TEST_SUITE_P(Apply, Interrupted, testing::Bool());

// A journal that came with a folder changes nothing but a half-written file of that folder.
TEST(RecoverTags, LeavesOtherFilesAlone) {
  FakeFiles files = Untagged();
  ApplyTitles(files, L"One ");
  FakeFiles crashed = files;
  // When the first file has its new tag, and its end is still the old one.
  for (int n = 1; crashed.Content(L"C:\\M\\a.mp3") == files.Content(L"C:\\M\\a.mp3"); ++n) {
    crashed = files;
    crashed.Die(n);
    ApplyTitles(crashed, L"Two ");
  }
  crashed.Restart(Unflushed::Kept);
  const std::string journal = crashed.Content(L"C:\\M\\tagrix.journal");
  const auto recovered = [&](const std::string& content, const std::string& saved) {
    FakeFiles now = crashed;
    now.Put(L"C:\\M\\a.mp3", content);
    now.Put(L"C:\\M\\tagrix.journal", saved);
    RecoverTags(now, kFolder);
    EXPECT_FALSE(now.Has(L"C:\\M\\tagrix.journal"));
    return now.Content(L"C:\\M\\a.mp3");
  };
  const std::string half = crashed.Content(L"C:\\M\\a.mp3"), old = files.Content(L"C:\\M\\a.mp3");
  EXPECT_TRUE(half != old && recovered(half, journal) == old);
  const std::string other = std::string(half).replace(half.find("Two"), 3, "Six");
  EXPECT_EQ(recovered(other, journal), other);
  EXPECT_EQ(recovered("short", journal), "short");
  EXPECT_EQ(recovered(half, journal.substr(0, journal.size() - 1)), half);
  EXPECT_EQ(recovered(half, std::string(journal).replace(journal.find("One"), 3, "Six")), half);
}

TEST(RecoverTags, StaysInTheFolderWhateverTheJournalSays) {
  FakeFiles files, left;
  for (const wchar_t* path : {L"C:\\M\\N\\x.mp3", L"C:\\M\\x.mp3"}) files.Put(path, "Ab");
  {
    TagJournal journal(files, kFolder);
    for (const wchar_t* name : {L"N\\x.mp3", L"x.mp3"}) journal.Add({name, {{0, "ab", "AB"}}});
    journal.Save();
    left = files;
  }
  RecoverTags(left, kFolder);
  EXPECT_EQ(left.Content(L"C:\\M\\N\\x.mp3"), "Ab");
  EXPECT_EQ(left.Content(L"C:\\M\\x.mp3"), "ab");
}

}  // namespace
}  // namespace tagrix
