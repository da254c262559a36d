#include "session/apply.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"

namespace tagrix {
namespace {

std::string Mark(const std::wstring& name) { return "<" + std::string(name.begin(), name.end()) + ">"; }

// Writes down what it is told.
struct Diary : ApplyWatcher {
  void Tell(const Incident& incident) override {
    static constexpr const wchar_t* kTroubles[] = {L"read-only ",   L"not tagged ", L"not replaced ", L"taken ",
                                                   L"not renamed ", L"aside ",      L"utf-8 "};
    entries.push_back(kTroubles[static_cast<int>(incident.trouble)] + incident.name +
                      (incident.target.empty() ? L"" : L" > ") + incident.target);
    if (incident.failure != nullptr) causes.push_back(incident.failure->Why());
  }
  void NameChanged(int i) override { changed.push_back(i); }
  bool MayReplacePlaylist(const std::wstring& path) override {
    entries.push_back(L"replace " + path + L"?");
    return mayReplace;
  }

  std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons& told) override {
    reasons.push_back(told);
    return style;
  }

  Texts entries;
  std::vector<TagStyleReasons> reasons;
  std::optional<TagStyle> style = TagStyle::Classic;
  std::vector<Cause> causes;
  std::vector<int> changed;
  bool mayReplace = true;
};

// An album whose files hold their first name 40 times over, so that each can be told apart whatever is done to it.
struct Album {
  Album() {
    session.folder = L"C:\\M\\Live";
    session.disc = {L" Band ", L" Live ", L"Rock", L"1999", {}};
    order.renamePattern = L"%6 %2";
    order.playlistPattern = L"%3";
    order.currentYear = L"2004";
  }
  void File(const std::wstring& name, const std::wstring& title) {
    std::string content;
    for (int i = 0; i < 40; ++i) content += Mark(name);
    files.Put(AlbumPath(session, name), content);
    session.files.push_back({name});
    session.disc.tracks.push_back({title});
  }
  bool ApplyAll() { return Apply(session, order, {files, codePage, styles}, progress, diary); }
  Undone Undo() { return UndoApply(session, files, progress, diary); }
  Texts Listed() const {
    Texts names;
    for (const AlbumFile& file : session.files) names.push_back(file.name);
    return names;
  }
  // The names in the album's folder.
  Texts OnDisk() const {
    Texts names;
    for (const std::wstring& path : files.AllFiles()) names.push_back(path.substr(path.rfind(L'\\') + 1));
    return names;
  }
  std::string Content(const std::wstring& name) const { return files.Content(AlbumPath(session, name)); }

  FakeFiles files;
  FakeCodePage codePage;
  const Texts styles;
  QuietProgress progress;
  Diary diary;
  AlbumSession session;
  ApplyOrder order;
};

struct ApplySession : testing::Test, Album {};

TEST_F(ApplySession, TagsRenamesAndListsEveryFileButFakes) {
  order.rename = order.playlist = order.id3v1 = true;
  order.status = L"Working";
  File(L"b.mp3", L" One? ");
  session.files.push_back(AlbumFile::Fake());
  session.disc.tracks.push_back({L"Two"});
  File(L"a.mp3", L"Three");
  session.disc.year = L"03";
  EXPECT_TRUE(ApplyAll());

  EXPECT_EQ(diary.entries, Texts{});
  EXPECT_EQ(diary.changed, (std::vector<int>{0, 2}));
  EXPECT_EQ(OnDisk(), (Texts{L"01 One.mp3", L"03 Three.mp3", L"Live.m3u"}));
  EXPECT_EQ(Listed(), (Texts{L"01 One.mp3", L"**FAKE TRACK**", L"03 Three.mp3"}));
  EXPECT_EQ(Content(L"Live.m3u"), "01 One.mp3\r\n03 Three.mp3\r\n");
  const std::string tag = Content(L"01 One.mp3").substr(40 * 7 - 128);
  EXPECT_EQ(tag.substr(0, 38), "TAG One?" + std::string(25, ' ') + "Band ");  // the title as it stands
  EXPECT_EQ(tag.substr(63, 50), "Live" + std::string(26, ' ') + "2004Tagged By Tagrix");
  EXPECT_EQ(tag[126], 1);
  EXPECT_EQ(session.disc.year, L"2004");
  EXPECT_EQ(progress.texts[0], L"Working b.mp3");
  EXPECT_EQ(progress.percents, (std::vector<int>{0, 66, 0, 33, 66, 100}));

  EXPECT_EQ(Undo(), Undone::All);  // the fake is passed over
  EXPECT_EQ(progress.texts.back(), L"C:\\M\\Live\\03 Three.mp3");
  EXPECT_EQ(Listed(), (Texts{L"b.mp3", L"**FAKE TRACK**", L"a.mp3"}));
}

TEST_F(ApplySession, RenamesWhereOnlyLetterCaseDiffers) {
  order.rename = true;
  session.format = L"OGG";
  File(L"01 INTRO.OGG", L"Intro");
  ApplyAll();
  EXPECT_EQ(OnDisk(), Texts{L"01 Intro.ogg"});
  EXPECT_EQ(Undo(), Undone::All);
  EXPECT_EQ(OnDisk(), Texts{L"01 INTRO.OGG"});
}

// One file's trouble is told with its name, and the others go on; no other file is written over.
TEST_F(ApplySession, PassesOverWhatItCantChange) {
  order.rename = order.id3v1 = true;
  order.renamePattern = L"%2";
  for (const wchar_t* title : {L"One", L"Two", L"::", L"Four", L"Five", L"Six"}) {
    File(std::wstring(1, L"abcdef"[session.files.size()]) + L".mp3", title);
  }
  files.SetReadOnly(L"C:\\M\\Live\\a.mp3");
  files.Delete(L"C:\\M\\Live\\b.mp3");
  files.Put(L"C:\\M\\Live\\d.mp3", "too short for a tag");
  files.Put(L"C:\\M\\Live\\five.mp3", "a stranger");
  EXPECT_TRUE(ApplyAll());
  EXPECT_EQ(diary.entries, (Texts{L"read-only a.mp3", L"not tagged b.mp3", L"not renamed b.mp3 > C:\\M\\Live\\Two.mp3",
                                  L"not renamed c.mp3 > C:\\M\\Live\\.mp3", L"not tagged d.mp3 > C:\\M\\Live\\d.mp3",
                                  L"taken e.mp3 > Five.mp3"}));
  EXPECT_EQ(diary.causes, std::vector<Cause>{Cause::TooShort});
  EXPECT_EQ(OnDisk(), (Texts{L"a.mp3", L"c.mp3", L"e.mp3", L"five.mp3", L"Four.mp3", L"Six.mp3"}));
  EXPECT_EQ(Content(L"five.mp3"), "a stranger");
  EXPECT_EQ(Content(L"a.mp3").find("TAG"), std::string::npos);
  EXPECT_NE(Content(L"c.mp3").find("TAG"), std::string::npos);
}

TEST_F(ApplySession, TellsATaggedCopyThatCantTakeTheFilesPlace) {
  order.id3v2 = true;
  File(L"a.mp3", L"One");
  const auto reader = files.OpenForReading(L"C:\\M\\Live\\a.mp3");
  ApplyAll();
  EXPECT_EQ(diary.entries, Texts{L"not replaced a.mp3 > C:\\M\\Live\\a.mp3"});
  EXPECT_EQ(OnDisk(), Texts{L"a.mp3"});
}

// Foreign text doesn't choose the ending, nor a device.
TEST_F(ApplySession, MakesHarmlessNamesAndTagsOfForeignText) {
  order.rename = order.playlist = order.id3v1 = true;
  order.renamePattern = L"%2";
  File(L"a.mp3", std::wstring(L"s00.hta\0x", 9));
  File(L"b.mp3", L"lpt1.live");
  session.disc.album = L"nul";
  ApplyAll();
  EXPECT_EQ(OnDisk(), (Texts{L"lpt1_.live.mp3", L"nul_.m3u", L"s00.htax.mp3"}));
  EXPECT_NE(Content(L"s00.htax.mp3").find("TAGs00.htax   "), std::string::npos);
}

TEST_F(ApplySession, StopsBetweenFilesWhenCancelled) {
  order.rename = order.playlist = true;
  for (const wchar_t* name : {L"a.mp3", L"b.mp3", L"c.mp3"}) File(name, L"x");
  progress.eachTime = [&] { progress.cancelled = files.Has(L"C:\\M\\Live\\02 x.mp3"); };
  EXPECT_FALSE(ApplyAll());
  EXPECT_EQ(OnDisk(), (Texts{L"01 x.mp3", L"02 x.mp3", L"c.mp3"}));
  EXPECT_EQ(Undo(), Undone::Cancelled);
  progress.eachTime = nullptr;
  progress.cancelled = false;
  EXPECT_EQ(Undo(), Undone::All);
  EXPECT_EQ(OnDisk(), (Texts{L"a.mp3", L"b.mp3", L"c.mp3"}));
}

TEST_F(ApplySession, PutsThePlaylistWhereTheModeSays) {
  const struct {
    const wchar_t *mode, *folder, *target;
    const char* line;
  } cases[] = {
      {L"0C:\\Lists", L"C:\\M\\Live", L"C:\\M\\Live\\Live.m3u", "a.mp3\r\n"},
      {L"1", L"C:\\M\\Live", L"C:\\M\\Live.m3u", "Live\\a.mp3\r\n"},
      {L"1", L"C:\\M", L"C:\\M\\Live.m3u", "a.mp3\r\n"},
      {L"2C:\\Lists", L"C:\\M\\Live", L"C:\\Lists\\Live.m3u", "..\\M\\Live\\a.mp3\r\n"},
      {L"2D:\\", L"C:\\M\\Live", L"D:\\Live.m3u", "C:\\M\\Live\\a.mp3\r\n"},
      {L"2C:\\gone", L"C:\\M\\Live", L"C:\\M\\Live\\Live.m3u", "a.mp3\r\n"},
  };
  order.playlist = true;
  session.files = {{L"a.mp3"}};
  session.disc.tracks = {{L"One"}};
  for (const auto& expected : cases) {
    for (const wchar_t* folder : {L"C:\\Lists", L"C:\\M\\Live", L"D:"}) files.AddFolder(folder);
    order.playlistMode = ParsePlaylistMode(expected.mode);
    session.folder = expected.folder;
    ApplyAll();
    EXPECT_EQ(files.Content(expected.target), expected.line) << expected.mode;
    EXPECT_EQ(files.AllFiles().size(), 1u);
    files.Delete(expected.target);
  }
}

TEST_F(ApplySession, AsksBeforeItReplacesAPlaylistWhichTheFolderNamesWhenThePatternMakesNone) {
  order.playlist = true;
  order.playlistPattern = L"%5";
  session.disc.genre = L" ? ";
  File(L"a.mp3", L"One");
  files.Put(L"C:\\M\\Live\\Live.m3u", "before");
  for (const bool may : {false, true}) {
    diary.mayReplace = may;
    ApplyAll();
    EXPECT_EQ(Content(L"Live.m3u"), may ? "a.mp3\r\n" : "before");
  }
  EXPECT_EQ(diary.entries.size(), 2u);
}

TEST_F(ApplySession, AsksOnceHowToTagWhereThatMatters) {
  order.id3v1 = order.id3v2 = true;
  order.rename = order.playlist = false;
  const std::string end = "TAG" + std::string(125, ' ');
  for (const wchar_t* name : {L"a.mp3", L"b.mp3", L"c.mp3", L"d.mp3"}) {
    File(name, name == std::wstring(L"c.mp3") ? std::wstring(127, L'x') : L"Title");
    files.Put(AlbumPath(session, name), Content(name) + end);
  }
  const std::string picture = "ID3\3" + std::string(5, '\0') + "\x0C" + "APIC" + std::string("\0\0\0\2\0\0", 6) + "jp";
  files.Put(L"C:\\M\\Live\\b.mp3", picture + Content(L"b.mp3"));
  files.Put(L"C:\\M\\Live\\d.mp3", std::string(500, 'd'));
  files.SetReadOnly(L"C:\\M\\Live\\d.mp3");
  session.journal.Record(L"former");

  diary.style = std::nullopt;  // the user cancels, and all is as it was
  const std::string before = Content(L"b.mp3");
  EXPECT_FALSE(ApplyAll());
  EXPECT_EQ(Content(L"b.mp3"), before);
  EXPECT_EQ(session.journal.Count(), 1);

  diary.style = TagStyle::Standard;
  EXPECT_TRUE(ApplyAll());
  const TagStyleReasons reasons{.dropsFrames = 1, .oldTag = 1, .longText = 1};
  EXPECT_TRUE(diary.reasons == std::vector(2, reasons));
  EXPECT_TRUE(Content(L"a.mp3").starts_with("ID3\3" + std::string(5, '\0')));  // where nothing matters, as ever
  EXPECT_EQ(Content(L"a.mp3").find(std::string(50, '\0')), std::string::npos);
  EXPECT_NE(Content(L"b.mp3").find("APIC"), std::string::npos);
  EXPECT_NE(Content(L"c.mp3").find(std::string(1000, '\0')), std::string::npos);  // padding

  order.tagStyle = TagStyle::Classic;
  ApplyAll();
  EXPECT_EQ(diary.reasons.size(), 2u);
  EXPECT_EQ(Content(L"b.mp3").find("APIC"), std::string::npos);
}

// By its name the next run finds it, to put back what was overwritten.
TEST_F(ApplySession, AFileWhoseTagIsHalfWrittenKeepsItsName) {
  order.id3v1 = order.id3v2 = true;
  order.tagStyle = TagStyle::Standard;
  for (const wchar_t* name : {L"a.mp3", L"b.mp3"}) File(name, L"One");
  ApplyAll();
  const std::string before = Content(L"a.mp3");
  order.rename = true;
  for (DiscTrack& track : session.disc.tracks) track.title = L"Two";
  // Once the first of two places is written, the second can't be, nor can the first be put back.
  files.beforeCall = [&, failing = 2](const std::wstring&) mutable {
    if (Content(L"a.mp3") != before && failing-- > 0) files.FailCall(1);
  };
  ApplyAll();
  EXPECT_EQ(diary.entries, Texts{L"not tagged a.mp3 > C:\\M\\Live\\a.mp3"});
  EXPECT_EQ(OnDisk(), (Texts{L"02 Two.mp3", L"a.mp3", L"tagrix.journal"}));
}

TEST_F(ApplySession, PutsNamesOutsideTheCodePageIntoAPlaylistInUtf8) {
  order.playlist = true;
  File(L"\x4E00.mp3", L"One");
  files.Put(L"C:\\M\\Live\\Live.m3u", "another");
  ApplyAll();
  EXPECT_EQ(Content(L"Live.m3u8"), "\xE4\xB8\x80.mp3\r\n");
  EXPECT_EQ(diary.entries, Texts{L"utf-8 Live.m3u8"});
}

TEST_F(ApplySession, UndoPairsPositionsWhateverWasMovedAndOverwritesNothing) {
  order.rename = true;
  session.journal.Record(L"from an earlier album.mp3");
  File(L"a.mp3", L"One");
  File(L"b.mp3", L"Two");
  ApplyAll();
  MoveFile(session, 1, 0);
  session.files.push_back({L"later.mp3"});  // has no former name
  files.Put(L"C:\\M\\Live\\later.mp3");
  files.Put(L"C:\\M\\Live\\A.mp3", "a stranger");
  EXPECT_EQ(Undo(), Undone::All);  // a clash is told once, and not tried again
  EXPECT_EQ(diary.entries, Texts{L"taken C:\\M\\Live\\02 Two.mp3 > C:\\M\\Live\\a.mp3"});
  EXPECT_EQ(Listed(), (Texts{L"02 Two.mp3", L"b.mp3", L"later.mp3"}));
  EXPECT_EQ(Content(L"A.mp3"), "a stranger");
  files.Delete(L"C:\\M\\Live\\A.mp3");
  Undo();
  EXPECT_EQ(Content(L"a.mp3").substr(0, 7), Mark(L"b.mp3"));
  EXPECT_EQ(Content(L"b.mp3").substr(0, 7), Mark(L"a.mp3"));
}

TEST_F(ApplySession, FormerNamesGoWithTheirFilesWhenTheyAreSorted) {
  order.rename = true;
  for (const wchar_t* name : {L"a.mp3", L"b.mp3", L"c.mp3"}) File(name, L"x");
  ApplyAll();
  ReorderFiles(session, {2, 0, 1});
  Undo();
  EXPECT_EQ(Listed(), (Texts{L"c.mp3", L"a.mp3", L"b.mp3"}));
  for (const std::wstring& name : Listed()) EXPECT_EQ(Content(name).substr(0, 7), Mark(name));
}

// Whatever call fails, every file is still there, once, under its old or its new name, and Undo gives the old one back.
TEST(ApplyFailures, LoseNothingWhicheverCallItIs) {
  const Texts before{L"x.mp3", L"b.mp3", L"c.mp3"};
  bool done = false;
  for (int n = 1; !done; ++n) {
    SCOPED_TRACE(n);
    Album album;
    album.order.rename = album.order.playlist = album.order.id3v1 = album.order.id3v2 = true;
    for (const std::wstring& name : before) album.File(name, L"Two");
    const auto expectAll = [&] {
      const Texts listed = album.Listed(), names = album.OnDisk();
      for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_NE(album.Content(listed[i]).find(Mark(before[i])), std::string::npos);
      }
      EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const auto& name) { return name.ends_with(L".mp3"); }), 3);
    };
    album.files.FailCall(n);
    try {
      album.ApplyAll();
    } catch (const Failure&) {
    }
    expectAll();
    done = album.files.Spared();
    album.files.FailCall(0);
    album.Undo();
    expectAll();
    EXPECT_EQ(album.Listed(), before);
  }
}

}  // namespace
}  // namespace tagrix
