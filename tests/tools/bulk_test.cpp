#include <gtest/gtest.h>

#include "core/long_work.h"
#include "dialogs/fixtures.h"
#include "tools/bulk/bulk_mod.h"
#include "tools/bulk/cleaning_rules.h"

namespace tagrix {
namespace {

TEST(CleaningRules, CleanNames) {
  const CleaningRules multi{.multipleSpaces = true}, capitals{.letterCase = CaseRule::Capitals};
  const CleaningRules upper{.letterCase = CaseRule::Upper}, lower{.letterCase = CaseRule::Lower};
  const CleaningRules unmerge{.unmerge = true}, under{.underscores = true}, space{.spaces = true};
  const struct {
    CleaningRules rules;
    const wchar_t *before, *after;
  } cases[] = {
      {capitals, L"01 - an ode  to (live) a_b-c.d é (x) ( SONG.MP3", L"01 - An Ode To (Live) A_b-c.d É (X) ( Song.mp3"},
      {upper, L"My Song.mp3", L"MY SONG.mp3"},
      {lower, L"Any.FLAC", L"any.FLAC"},
      {upper, L" abc", L"abc"},  // shorter than an ending once it is trimmed
      {unmerge, L"AnOdeToNoOne.mp3", L"An Ode To No One.mp3"},
      {unmerge, L"abc1xyz-d_e.f Gh.mp3", L"abc 1xyz -d _e .f Gh.mp3"},
      {unmerge, L"ab1.mp3", L"ab1.mp3"},  // the last five are left alone
      // In any script.
      {unmerge, L"TiếngViệtĐẹpỞĐây.mp3", L"Tiếng Việt Đẹp ỞĐây.mp3"},
      {unmerge, L"ΟδυσσεύςΚαιΘάλασσα.mp3", L"Οδυσσεύς Και Θάλασσα.mp3"},
      {unmerge, L"თბილისი25.mp3", L"თბილისი 25.mp3"},
      {capitals, L"șI țARA ệ (đẸP) ωΔΉ ßA თბილისი ıx.mp3", L"Și Țara Ệ (Đẹp) Ωδή ßa თბილისი ıx.mp3"},
      // The rules run in one order.
      {{.unmerge = true, .spaces = true}, L"AnOdeToNoOne.mp3", L"An_Ode_To_No_One.mp3"},
      {{.merge = true, .spaces = true}, L"An Ode.mp3", L"AnOde.mp3"},
      {{.letterCase = CaseRule::Capitals, .unmerge = true}, L"anOde to.mp3", L"Anode To.mp3"},
      {under, L"a_b__c.mp3", L"a b  c.mp3"},
      {space, L"a b  c.mp3", L"a_b__c.mp3"},
      // Several spaces are only collapsed in names of at most three characters.
      {multi, L"a  b.mp3", L"a  b.mp3"},
      // Blanks at both ends go with any rule, but not in names of three characters.
      {space, L"  a.mp3", L"a.mp3"},
      {space, L" a ", L" a "},
      {upper, L"abc", L"abc"},
  };
  for (const auto& expected : cases) EXPECT_EQ(CleanedName(expected.before, expected.rules), expected.after);
  for (const auto& [before, after] : {std::pair(L"a  ", L"a "), {L"   ", L"  "}, {L"a  b", L"a  b"}, {L"", L""}}) {
    EXPECT_EQ(CollapseSpaces(before), after);
  }
}

struct Bulk : testing::Test, TestContext {
  Bulk() { InitBulkPage(page, context); }
  void Add(const Texts& names) {
    for (const std::wstring& name : names) {
      files.Put(L"C:\\m\\" + name, "was " + codePage.ToBytes(name));
      page.bulk_lst.Add(L"C:\\m\\" + name);
    }
    UpdateBulkGo(page);
  }
  // Column 0 the names, 1 what the rules make of them.
  Texts Column(int column) {
    Texts cells;
    for (int i = 0; i < page.bulk_lst.Count(); ++i) cells.push_back(page.bulk_lst.cell(i, column));
    return cells;
  }
  BulkPage page;
};

TEST_F(Bulk, StartNeedsFilesAndARuleAndOppositesExclude) {
  for (const auto& [first, second] :
       {std::pair(&page.merge_chk, &page.unmerge_chk), {&page.space_chk, &page.under_chk}}) {
    for (CheckBox* box : {first, second, first, second}) {
      box->Click();
      EXPECT_TRUE(box->Checked() && first->Checked() != second->Checked());
    }
  }
  TranslateBulkPage(page, context);
  EXPECT_TRUE(page.merge_chk.Text().ends_with(L"AnOdeToNoOne ->  An Ode To No One)"));  // as ever, its counterpart's
  EXPECT_FALSE(page.bulk_go_btn.Enabled());
  files.Put(L"C:\\m\\b.ogg");
  prompts.openFiles = {L"C:\\m", {L"b.ogg"}};
  for (int press = 0; press < 2; ++press) page.add_btn.Click();
  EXPECT_EQ(Column(0), (Texts{L"b.ogg", L"b.ogg"}));
  EXPECT_TRUE(page.bulk_go_btn.Enabled());
  for (CheckBox* box : {&page.unmerge_chk, &page.under_chk}) box->Click();
  EXPECT_FALSE(page.bulk_go_btn.Enabled());
}

TEST_F(Bulk, PreviewsAndUndoesTheLastRunOnly) {
  Add({L"an ode.MP3", L"Fine.mp3", L"a ux.mp3"});
  EXPECT_EQ(Column(1), (Texts{L"", L"", L""}));
  page.case_chk.Click();
  page.merge_chk.Click();
  EXPECT_EQ(Column(1), (Texts{L"AnOde.mp3", L"Fine.mp3", L"AUx_.mp3"}));  // no file bears a device's name
  EXPECT_EQ(page.bulk_lst.mark(0), RowMark::Changed);
  EXPECT_EQ(page.bulk_lst.mark(1), RowMark::None);
  page.merge_chk.Click();
  page.uc_rdo.Click();
  page.bulk_go_btn.Click();
  page.bulk_lst.SetItemText(0, L"C:\\M\\AN ode.mp3");  // spelled unlike the file
  page.lc_rdo.Click();
  page.bulk_go_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\m\\an ode.mp3")->name, L"an ode.MP3");
  page.bulk_undo_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\m\\an ode.mp3")->name, L"AN ode.mp3");

  page.bulk_go_btn.Click();
  page.bulk_lst.Select(0);
  page.bulk_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(page.bulk_lst.Count(), 2);
  EXPECT_FALSE(page.bulk_undo_btn.Enabled());  // the former names don't line up any more
}

TEST_F(Bulk, ShowsTheNamesMeantAlsoWhereTheyWereRefusedAndGivesTheFormerBack) {
  Add({L"a b.mp3", L"x y.mp3", L"c d.mp3", L"gone e.mp3", L"A B"});
  for (const wchar_t* path : {L"C:\\m\\gone e.mp3", L"C:\\m\\x y.mp3"}) files.Delete(path);
  files.AddFolder(L"C:\\m\\x y.mp3");
  files.Put(L"C:\\m\\c_d.mp3", "other");
  page.space_chk.Click();
  page.bulk_go_btn.Click();
  EXPECT_EQ(Column(0), (Texts{L"a_b.mp3", L"x y.mp3", L"c_d.mp3", L"gone e.mp3", L"A B"}));
  EXPECT_EQ(prompts.messages, (Texts{L"<169> C:\\m\\c_d.mp3", L"<51>\r\n\r\n<99> 2 5"}));

  prompts.messages.clear();
  files.FailCall(1);
  page.bulk_undo_btn.Click();
  EXPECT_TRUE(page.bulk_undo_btn.Enabled());  // may be tried again
  page.bulk_undo_btn.Click();
  EXPECT_EQ(Column(0), (Texts{L"a b.mp3", L"x y.mp3", L"c_d.mp3", L"gone e.mp3", L"A B"}));
  const std::wstring clash = L"<46> C:\\m\\c d.mp3 C:\\m\\c_d.mp3";
  EXPECT_EQ(prompts.messages, (Texts{L"<169> C:\\m\\a b.mp3", clash, clash}));
  EXPECT_EQ(files.Content(L"C:\\m\\a b.mp3"), "was a b.mp3");
  EXPECT_FALSE(page.bulk_undo_btn.Enabled());
}

TEST_F(Bulk, CancelKeepsWhatIsDoneAndOffersNoUndoOfIt) {
  Add({L"a b.mp3", L"c d.mp3"});
  page.merge_chk.Click();
  events.Post([&] {
    EXPECT_FALSE(page.bulk_list_frm.Enabled() || page.bulk_rules_frm.Enabled());
    CancelWork(context);
  });
  page.bulk_go_btn.Click();
  EXPECT_EQ(Column(0), (Texts{L"ab.mp3", L"c d.mp3"}));
  EXPECT_FALSE(page.bulk_undo_btn.Enabled());
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
}

}  // namespace
}  // namespace tagrix
