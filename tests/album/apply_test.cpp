#include "album/apply.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "album/undo.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

std::string Mark(const std::wstring& name) { return "<" + std::string(name.begin(), name.end()) + ">"; }

// An album whose files hold their first name 40 times over, so that each can be told apart whatever is done to it.
struct Album {
  Album() {
    page.path_txt.SetText(L"C:\\M\\Live");
    page.artist_txt.SetText(L" Band ");
    page.album_txt.SetText(L" Live ");
    page.year_txt.SetText(L"1999");
    page.genre_txt.SetText(L"Rock");
    test.context.settings.Put(L"Pattern", L"%6 %2");
    page.undo_btn.SetEnabled(false);
  }
  void File(const std::wstring& name, const std::wstring& title) {
    std::string content;
    for (int i = 0; i < 40; ++i) content += Mark(name);
    test.files.Put(L"C:\\M\\Live\\" + name, content);
    page.mp3_lst.Add(name);
    page.new_lst.Add(title);
  }
  void ApplyWith(std::initializer_list<CheckBox*> options) {
    for (CheckBox* box : options) box->SetChecked(true);
    RunCommand(test.context, [&] { ApplyClicked(page, test.context); });
  }
  void Undo() {
    RunCommand(test.context, [&] { UndoClicked(page, test.context); });
  }
  Texts Listed() const { return page.mp3_lst.Texts(); }
  // The names in the album's folder.
  Texts OnDisk() const {
    Texts names;
    for (const std::wstring& path : test.files.AllFiles()) names.push_back(path.substr(path.rfind(L'\\') + 1));
    return names;
  }
  std::string Content(const std::wstring& name) const { return test.files.Content(L"C:\\M\\Live\\" + name); }
  // What was shown, but for the closing message.
  Texts Complaints() {
    EXPECT_EQ(test.prompts.messages.back(), TestText(message::kDone));
    return {test.prompts.messages.begin(), test.prompts.messages.end() - 1};
  }
  void ExpectIdle() {
    EXPECT_TRUE(page.session_frm.Enabled() && page.apply_btn.Enabled() && page.go_btn.Enabled());
    EXPECT_FALSE(IsBusy(test.context));
    EXPECT_EQ(test.context.status_lbl.Text(), L"");
  }

  TestContext test;
  AlbumPage page;
};

struct Apply : testing::Test, Album {};

TEST_F(Apply, RefusesWithoutOptionsAndWithDifferentCounts) {
  File(L"a.mp3", L"One");
  ApplyWith({});
  page.ID3v1_chk.SetEnabled(false);
  ApplyWith({&page.ID3v1_chk});  // a disabled option is none
  page.new_lst.Add(L"Two");
  ApplyWith({&page.ren_chk});
  EXPECT_EQ(test.prompts.messages,
            (Texts{TestText(message::kNoOption), TestText(message::kNoOption), TestText(message::kCountsDiffer)}));
  EXPECT_EQ(OnDisk(), Texts{L"a.mp3"});
  EXPECT_FALSE(page.undo_btn.Enabled());
}

TEST_F(Apply, TagsRenamesAndListsEveryFileButFakes) {
  File(L"b.mp3", L" One? ");
  page.mp3_lst.Add(kFakeTrack);
  page.new_lst.Add(L"Two");
  File(L"a.mp3", L"Three");
  page.year_txt.SetText(L"03");
  ApplyWith({&page.ren_chk, &page.pls_chk, &page.ID3v1_chk});

  EXPECT_EQ(Complaints(), Texts{});
  EXPECT_EQ(OnDisk(), (Texts{L"01 One.mp3", L"03 Three.mp3", L"Live.m3u"}));
  EXPECT_EQ(Listed(), (Texts{L"01 One.mp3", kFakeTrack, L"03 Three.mp3"}));
  EXPECT_EQ(Content(L"Live.m3u"), "01 One.mp3\r\n03 Three.mp3\r\n");
  const std::string tag = Content(L"01 One.mp3").substr(40 * 7 - 128);
  EXPECT_EQ(tag.substr(0, 38), "TAG One?" + std::string(25, ' ') + "Band ");  // the title as it stands
  EXPECT_EQ(tag.substr(63, 50), "Live" + std::string(26, ' ') + "2004Tagged By Tagrix");
  EXPECT_EQ(tag[126], 1);
  EXPECT_EQ(Content(L"03 Three.mp3").substr(40 * 7 - 2, 1), "\3");
  EXPECT_EQ(page.year_txt.Text(), L"2004");
  EXPECT_EQ(page.album_txt.Text(), L"Live");
  EXPECT_EQ(page.undo_lst.ItemText(1), kFakeTrack);
  EXPECT_TRUE(page.undo_btn.Enabled());
  ExpectIdle();
}

TEST_F(Apply, NeverWritesOverAnotherFile) {
  File(L"02 B.mp3", L"A");  // in the way of the next one, and cannot leave
  File(L"03 C.mp3", L"B");
  File(L"x.mp3", L"c");
  test.files.Put(L"C:\\M\\Live\\01 a.mp3", "a stranger");
  ApplyWith({&page.ren_chk});
  EXPECT_EQ(Complaints(), (Texts{L"<45> 02 B.mp3 01 A.mp3", L"<45> 03 C.mp3 02 B.mp3", L"<45> x.mp3 03 c.mp3"}));
  EXPECT_EQ(OnDisk(), (Texts{L"01 a.mp3", L"02 B.mp3", L"03 C.mp3", L"x.mp3"}));
  EXPECT_EQ(Listed(), (Texts{L"02 B.mp3", L"03 C.mp3", L"x.mp3"}));
  EXPECT_EQ(Content(L"01 a.mp3"), "a stranger");
}

TEST_F(Apply, RenamesWhereOnlyLetterCaseDiffers) {
  test.context.settings.Put(L"Pattern", L"");
  page.format = L"OGG";
  File(L"BAND - Live - 01 - Intro.OGG", L"Intro");
  ApplyWith({&page.ren_chk, &page.pls_chk});
  EXPECT_EQ(Complaints(), Texts{});
  EXPECT_EQ(OnDisk(), (Texts{L"Band - Live - 01 - Intro.ogg", L"Live.m3u"}));
  Undo();
  EXPECT_EQ(OnDisk(), (Texts{L"BAND - Live - 01 - Intro.OGG", L"Live.m3u"}));
  EXPECT_EQ(Listed(), Texts{L"BAND - Live - 01 - Intro.OGG"});
}

TEST_F(Apply, PassesOverWhatItCantChange) {
  File(L"a.mp3", L"One");
  File(L"b.mp3", L"Two");
  File(L"c.mp3", L"Three");
  File(L"d.mp3", L"Four");
  test.files.SetReadOnly(L"C:\\M\\Live\\a.mp3");
  test.files.Delete(L"C:\\M\\Live\\b.mp3");
  page.new_lst.SetItemText(2, L"::");
  test.context.settings.Put(L"Pattern", L"%2");
  ApplyWith({&page.ren_chk, &page.ID3v1_chk});
  EXPECT_EQ(Complaints(), (Texts{L"<43> a.mp3", L"<44>", L"<169> C:\\M\\Live\\Two.mp3", L"<169> C:\\M\\Live\\.mp3"}));
  EXPECT_EQ(OnDisk(), (Texts{L"a.mp3", L"c.mp3", L"Four.mp3"}));
  EXPECT_EQ(Content(L"a.mp3").find("TAG"), std::string::npos);
  EXPECT_NE(Content(L"c.mp3").find("TAG"), std::string::npos);
}

TEST_F(Apply, EndsAtAFileThatFailsWhileItIsTagged) {
  File(L"a.mp3", L"One");
  File(L"b.mp3", L"Two");
  File(L"c.mp3", L"Three");
  test.files.Put(L"C:\\M\\Live\\b.mp3", "too short for a tag");
  ApplyWith({&page.ren_chk, &page.pls_chk, &page.ID3v1_chk});
  ASSERT_EQ(test.prompts.messages.size(), 1u);
  EXPECT_TRUE(test.prompts.messages[0].starts_with(TestText(message::kUnexpectedError)));
  EXPECT_EQ(OnDisk(), (Texts{L"01 One.mp3", L"b.mp3", L"c.mp3"}));
  ExpectIdle();
  Undo();
  EXPECT_EQ(OnDisk(), (Texts{L"a.mp3", L"b.mp3", L"c.mp3"}));
}

TEST_F(Apply, StopsBetweenFilesWhenCancelled) {
  for (const wchar_t* name : {L"a.mp3", L"b.mp3", L"c.mp3"}) File(name, L"x");
  test.context.cancelled = true;  // from an operation before this one
  test.events.eachTime = [&] {
    EXPECT_TRUE(IsBusy(test.context));
    EXPECT_FALSE(page.session_frm.Enabled());
    if (test.files.Has(L"C:\\M\\Live\\02 x.mp3")) test.context.cancelled = true;
  };
  ApplyWith({&page.ren_chk, &page.pls_chk});
  EXPECT_EQ(OnDisk(), (Texts{L"01 x.mp3", L"02 x.mp3", L"c.mp3"}));
  EXPECT_EQ(test.prompts.messages, Texts{TestText(message::kCancelled)});
  ExpectIdle();

  test.events.eachTime = [&] { test.context.cancelled = true; };
  Undo();
  EXPECT_EQ(test.prompts.messages.back(), TestText(message::kCancelled));
  EXPECT_TRUE(page.undo_btn.Enabled());
  test.events.eachTime = nullptr;
  Undo();
  EXPECT_EQ(OnDisk(), (Texts{L"a.mp3", L"b.mp3", L"c.mp3"}));
}

TEST_F(Apply, PutsThePlaylistWhereTheSettingSays) {
  const struct {
    const wchar_t *mode, *folder, *target;
    const char* line;
  } cases[] = {
      {L"0C:\\Lists", L"C:\\M\\Live", L"C:\\M\\Live\\Live.m3u", "a.mp3\r\n"},
      {L"1", L"C:\\M\\Live", L"C:\\M\\Live.m3u", "Live\\a.mp3\r\n"},
      {L"1", L"C:\\M", L"C:\\M\\Live.m3u", "a.mp3\r\n"},
      {L"2C:\\Lists", L"C:\\M\\Live", L"C:\\Lists\\Live.m3u", "..\\M\\Live\\a.mp3\r\n"},
      {L"2C:\\Lists\\", L"C:\\M\\Live", L"C:\\Lists\\Live.m3u", "..\\M\\Live\\a.mp3\r\n"},
      {L"2D:\\", L"C:\\M\\Live", L"D:\\Live.m3u", "C:\\M\\Live\\a.mp3\r\n"},
      {L"2C:\\gone", L"C:\\M\\Live", L"C:\\M\\Live\\Live.m3u", "a.mp3\r\n"},
  };
  page.mp3_lst.Add(L"a.mp3");
  page.new_lst.Add(L"One");
  for (const auto& expected : cases) {
    for (const wchar_t* folder : {L"C:\\Lists", L"C:\\M\\Live", L"D:"}) test.files.AddFolder(folder);
    test.context.settings.Put(L"PlaylistMode", expected.mode);
    page.path_txt.SetText(expected.folder);
    ApplyWith({&page.pls_chk});
    EXPECT_EQ(test.files.Content(expected.target), expected.line) << expected.mode;
    EXPECT_EQ(test.files.AllFiles().size(), 1u);
    test.files.Delete(expected.target);
  }
}

TEST_F(Apply, AsksBeforeItReplacesAPlaylist) {
  File(L"a.mp3", L"One");
  test.files.Put(L"C:\\M\\Live\\Live.m3u", "before");
  test.prompts.answers = {false};
  ApplyWith({&page.pls_chk});
  EXPECT_EQ(Content(L"Live.m3u"), "before");
  ApplyWith({&page.pls_chk});
  EXPECT_EQ(Content(L"Live.m3u"), "a.mp3\r\n");
  EXPECT_EQ(test.prompts.questions, (Texts{TestText(message::kPlaylistExists), TestText(message::kPlaylistExists)}));

  // A pattern that makes no name: the folder lends its own.
  test.context.settings.Put(L"Playlist", L"%5");
  page.genre_txt.SetText(L" ? ");
  test.files.Put(L"C:\\M\\Rock\\a.mp3");
  page.path_txt.SetText(L"C:\\M\\Rock");
  ApplyWith({&page.pls_chk});
  EXPECT_EQ(test.files.Content(L"C:\\M\\Rock\\Rock.m3u"), "a.mp3\r\n");
}

TEST_F(Apply, UndoPairsPositionsWhateverWasMovedAndOverwritesNothing) {
  File(L"a.mp3", L"One");
  File(L"b.mp3", L"Two");
  page.undo_lst.Add(L"from an earlier album.mp3");
  ApplyWith({&page.ren_chk});
  page.mp3_lst.SetItemText(0, L"02 Two.mp3");  // the user moves the second entry up
  page.mp3_lst.SetItemText(1, L"01 One.mp3");
  page.mp3_lst.Add(L"later.mp3");  // has no former name
  test.files.Put(L"C:\\M\\Live\\later.mp3");
  test.files.Put(L"C:\\M\\Live\\A.mp3", "a stranger");
  Undo();
  EXPECT_EQ(test.prompts.messages.back(), L"<46> C:\\M\\Live\\a.mp3 C:\\M\\Live\\02 Two.mp3");
  EXPECT_EQ(Listed(), (Texts{L"02 Two.mp3", L"b.mp3", L"later.mp3"}));
  EXPECT_EQ(Content(L"A.mp3"), "a stranger");
  test.files.Delete(L"C:\\M\\Live\\A.mp3");
  Undo();
  EXPECT_EQ(Listed(), (Texts{L"a.mp3", L"b.mp3", L"later.mp3"}));
  EXPECT_EQ(Content(L"a.mp3").substr(0, 7), Mark(L"b.mp3"));
  EXPECT_EQ(Content(L"b.mp3").substr(0, 7), Mark(L"a.mp3"));
  EXPECT_FALSE(page.undo_btn.Enabled());
  EXPECT_EQ(page.undo_lst.Count(), 2);
}

// Whatever call fails, every file is still there, once, under its old or its new name, and Undo gives the old one back.
TEST(ApplyFailures, LoseNothingWhicheverCallItIs) {
  const Texts before{L"x.mp3", L"b.mp3", L"c.mp3"};
  bool failed = true;
  for (int n = 1; failed; ++n) {
    SCOPED_TRACE(n);
    Album album;
    for (const std::wstring& name : before) album.File(name, L"Two");
    const auto expectAll = [&] {
      const Texts listed = album.Listed(), names = album.OnDisk();
      for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_NE(album.Content(listed[i]).find(Mark(before[i])), std::string::npos);
      }
      EXPECT_EQ(std::count_if(names.begin(), names.end(), [](const auto& name) { return name.ends_with(L".mp3"); }), 3);
    };
    album.test.files.FailCall(n);
    album.ApplyWith({&album.page.ren_chk, &album.page.pls_chk, &album.page.ID3v1_chk, &album.page.ID3v2_chk});
    failed = album.test.prompts.messages != Texts{TestText(message::kDone)};
    expectAll();
    EXPECT_TRUE(album.page.session_frm.Enabled() && album.page.undo_btn.Enabled());
    album.test.files.FailCall(0);
    album.Undo();
    expectAll();
    EXPECT_EQ(album.Listed(), before);
  }
}

}  // namespace
}  // namespace tagrix
