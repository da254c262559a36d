#include "album/apply_album.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct ApplyPage : testing::Test {
  ApplyPage() {
    page.session.folder = L"C:\\M\\Live";
    for (const wchar_t* name : {L"a.mp3", L"b.mp3"}) {
      test.files.Put(AlbumPath(page.session, name), std::string(500, 'x'));
      page.session.files.push_back({name});
      page.mp3_lst.Add(name);
    }
    page.session.disc.tracks = {{L"One"}, {L"Two"}};
    page.artist_txt.SetText(L"Band");
    page.year_txt.SetText(L"99");
    test.context.settings.Put(setting::kPattern, L"%1 %2");
    page.undo_btn.SetEnabled(false);
  }
  void ApplyWith(std::initializer_list<CheckBox*> options) {
    for (CheckBox* box : options) box->SetChecked(true);
    RunCommand(test.context, [&] { ApplyClicked(page, test.context); });
  }
  void Undo() {
    RunCommand(test.context, [&] { UndoClicked(page, test.context); });
  }

  TestContext test;
  AlbumPage page;
};

TEST_F(ApplyPage, RefusesWithoutOptionsAndWithDifferentCounts) {
  ApplyWith({});
  page.ID3v1_chk.SetEnabled(false);
  ApplyWith({&page.ID3v1_chk});  // a disabled option is none
  page.session.files.pop_back();
  ApplyWith({&page.ren_chk});
  EXPECT_EQ(test.prompts.messages,
            (Texts{TestText(message::kNoOption), TestText(message::kNoOption), TestText(message::kCountsDiffer)}));
  EXPECT_FALSE(page.undo_btn.Enabled());
}

TEST_F(ApplyPage, TakesTheFieldsShowsTheNamesAndGivesThemBack) {
  test.events.eachTime = [&] { EXPECT_TRUE(AtWork(test.context) && !page.session_frm.Enabled()); };
  ApplyWith({&page.ren_chk, &page.ID3v1_chk, &page.ID3v2_chk});
  EXPECT_EQ(test.prompts.messages, Texts{TestText(message::kDone)});
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"Band One.mp3", L"Band Two.mp3"}));
  EXPECT_EQ(page.year_txt.Text(), L"2004");
  EXPECT_TRUE(page.undo_btn.Enabled() && page.session_frm.Enabled());
  Undo();
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a.mp3", L"b.mp3"}));
  EXPECT_FALSE(page.undo_btn.Enabled());
}

TEST_F(ApplyPage, TellsEachTroubleInItsOwnWords) {
  page.session.disc.tracks = {{L"Two"}, {L"One"}};
  test.files.Put(L"C:\\M\\Live\\Band Two.mp3", "in the way");
  test.files.Put(L"C:\\M\\Live\\a.mp3", "too short for a tag");
  test.files.SetReadOnly(L"C:\\M\\Live\\b.mp3");
  ApplyWith({&page.ren_chk, &page.ID3v1_chk});
  const std::wstring reason = L"<242>\r\nC:\\M\\Live\\a.mp3\r\n<246>";
  EXPECT_EQ(test.prompts.messages,
            (Texts{L"<227> a.mp3 " + reason, L"<45> a.mp3 Band Two.mp3", L"<43> b.mp3", L"<51>"}));

  page.session.journal.Clear();
  page.session.journal.Record(L"Band Two.mp3");
  page.session.journal.Record(L"c.mp3");
  const auto reader = test.files.OpenForReading(L"C:\\M\\Live\\b.mp3");
  test.prompts.messages.clear();
  Undo();
  EXPECT_EQ(test.prompts.messages,
            (Texts{L"<46> C:\\M\\Live\\Band Two.mp3 C:\\M\\Live\\a.mp3", L"<169> C:\\M\\Live\\c.mp3"}));
  EXPECT_TRUE(page.undo_btn.Enabled());  // for another try
}

TEST_F(ApplyPage, SaysWhenItWasCancelled) {
  test.events.eachTime = [&] { CancelWork(test.context); };
  ApplyWith({&page.ren_chk});
  Undo();
  EXPECT_EQ(test.prompts.messages, (Texts{TestText(message::kCancelled), TestText(message::kCancelled)}));
  EXPECT_TRUE(page.undo_btn.Enabled());
}

}  // namespace
}  // namespace tagrix
