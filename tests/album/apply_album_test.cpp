#include "album/apply_album.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

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
    test.context.settings.Put(setting::kTagStyle, L"classic");
    page.undo_btn.SetEnabled(false);
  }
  // Reads the closing window: its heading and who was left out, and why.
  void ReadSummary() {
    test.prompts.dialogs.emplace_back([this](Form& form) {
      EXPECT_EQ(form.name, "summary");
      heading = Find<Label>(form.layout, "heading_lbl").Text();
      text = Find<Label>(form.layout, "text_lbl").Text();
      left = Find<ListBox>(form.layout, "left_lst").Texts();
      PressOk(form);
    });
  }
  void ApplyWith(std::initializer_list<CheckBox*> options) {
    for (CheckBox* box : options) box->SetChecked(true);
    ReadSummary();
    RunCommand(test.context, [&] { ApplyClicked(page, test.context); });
  }
  void Undo() {
    test.prompts.dialogs.clear();
    ReadSummary();
    RunCommand(test.context, [&] { UndoClicked(page, test.context); });
  }

  TestContext test;
  AlbumPage page;
  std::wstring heading, text;
  Texts left;
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
  EXPECT_EQ(heading, TestText(message::kDone));
  EXPECT_EQ(left, Texts());
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
  const std::wstring reason = L"<242> C:\\M\\Live\\a.mp3 <246>";
  EXPECT_TRUE(test.prompts.messages.empty()) << "one window instead of a box for each";
  EXPECT_EQ(left, (Texts{L"a.mp3: <227> a.mp3 " + reason, L"a.mp3: <45> a.mp3 Band Two.mp3", L"b.mp3: <43> b.mp3"}));
  EXPECT_EQ(text.substr(0, 15), L"<299> 2 2 0 0 2");
  EXPECT_EQ(page.outcomes, (Texts{L"<307> (<246>), <308>", L"<306>"}));

  page.session.journal.Clear();
  page.session.journal.Record(L"Band Two.mp3");
  page.session.journal.Record(L"c.mp3");
  const auto reader = test.files.OpenForReading(L"C:\\M\\Live\\b.mp3");
  Undo();
  EXPECT_EQ(left,
            (Texts{L"a.mp3: <46> C:\\M\\Live\\Band Two.mp3 C:\\M\\Live\\a.mp3", L"b.mp3: <169> C:\\M\\Live\\c.mp3"}));
  EXPECT_TRUE(page.undo_btn.Enabled());  // for another try
}

TEST_F(ApplyPage, KeepsTheAnswerHowToTag) {
  test.context.settings.Put(setting::kTagStyle, L"");
  test.prompts.dialogs.emplace_back([](Form&) {});  // closed
  ApplyWith({&page.ID3v1_chk});
  EXPECT_EQ(test.prompts.shown, (std::vector<std::string>{"AskTagStyle", "summary"}));
  EXPECT_EQ(heading, TestText(message::kCancelled));
  EXPECT_EQ(test.files.Content(L"C:\\M\\Live\\a.mp3"), std::string(500, 'x'));
  test.prompts.dialogs.emplace_back([](Form& dialog) {
    EXPECT_EQ(Find<Label>(dialog.layout, "reasons_lbl").Text(), L"<271>\r\n\r\n<276> 2");
    Find<Button>(dialog.layout, "standard_btn").Click();
  });
  for (int time = 0; time < 2; ++time) ApplyWith({});
  EXPECT_EQ(test.prompts.shown.size(), 5u);  // asked once more, and two summaries
  EXPECT_EQ(test.context.settings.Get(setting::kTagStyle), L"standard");
  EXPECT_EQ(test.files.Content(L"C:\\M\\Live\\a.mp3").size(), 628u);
}

TEST_F(ApplyPage, SaysHowFarItCameWhenItWasCancelled) {
  test.events.eachTime = [&] {
    if (test.files.Has(L"C:\\M\\Live\\Band One.mp3")) CancelWork(test.context);
  };
  ApplyWith({&page.ren_chk});
  EXPECT_EQ(heading, TestText(message::kCancelled));
  EXPECT_EQ(text.substr(0, 15), L"<299> 1 2 0 1 0");
  EXPECT_EQ(page.outcomes, Texts{L"<305>"});
  Undo();
  EXPECT_EQ(heading, TestText(message::kCancelled));
  EXPECT_TRUE(page.undo_btn.Enabled());
}

TEST_F(ApplyPage, SaysWhatWasDoneWhenThePlaylistCannotBeWritten) {
  test.files.beforeCall = [&](const std::wstring& path) {
    if (path.ends_with(L".m3u.new")) throw Failure(Action::Create, path);
  };
  ApplyWith({&page.ren_chk, &page.pls_chk});
  EXPECT_EQ(heading, TestText(message::kUnexpectedError));
  EXPECT_EQ(text.substr(0, 15), L"<299> 2 2 0 2 0");
  EXPECT_EQ(left.size(), 1U);
}

TEST_F(ApplyPage, AsksBeforeAFileGetsTheTitleOfAnother) {
  int minute = 9;
  for (const AlbumFile& file : page.session.files) {
    test.files.Put(AlbumPath(page.session, file.name), SmallMp3(minute * 60'000));
    minute = 1;
  }
  page.session.disc.tracks = {{L"One", 60 * 75}, {L"Nine", 9 * 60 * 75}};
  const auto answer = [&](const char* button) {
    test.prompts.dialogs.clear();
    test.prompts.dialogs.emplace_back([=](Form& form) {
      EXPECT_EQ(form.name, "question");
      EXPECT_EQ(Find<Label>(form.layout, "question_lbl").Text(), TestText(message::kVerdictOtherOrder));
      Find<Button>(form.layout, button).Click();
    });
  };
  page.ID3v1_chk.SetChecked(true);
  answer("answer2_btn");
  ApplyClicked(page, test.context);
  EXPECT_EQ(test.prompts.shown, std::vector<std::string>{"question"});
  answer("answer1_btn");
  ReadSummary();
  ApplyClicked(page, test.context);
  EXPECT_EQ(heading, TestText(message::kDone));
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"a.mp3", L"b.mp3"}));
  answer("answer0_btn");
  test.prompts.dialogs.emplace_back(PressOk);  // of Auto Sort, which has measured at once
  ReadSummary();
  ApplyClicked(page, test.context);
  EXPECT_EQ(page.mp3_lst.Texts(), (Texts{L"b.mp3", L"a.mp3"}));
}

}  // namespace
}  // namespace tagrix
