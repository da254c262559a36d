#include "tools/bulk/bulk_mod.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

using Paths = std::vector<std::wstring>;

struct Bulk : testing::Test, TestContext {
  Bulk() {
    InitBulkPage(page, context);
    TranslateBulkPage(page, context);
  }
  void Add(const Paths& paths) {
    for (const std::wstring& path : paths) {
      files.Put(path, "was " + codePage.ToBytes(path));
      page.bulk_lst.Add(path);
    }
    UpdateBulkGo(page);
  }
  Paths Items() { return page.bulk_lst.Texts(); }
  BulkPage page;
};

TEST_F(Bulk, StartNeedsFilesAndARule) {
  EXPECT_EQ(page.merge_chk.Text(), L"Merge title (ie : AnOdeToNoOne ->  An Ode To No One)");  // its counterpart's
  for (const auto& [first, second] :
       {std::pair(&page.merge_chk, &page.unmerge_chk), {&page.space_chk, &page.under_chk}}) {
    for (CheckBox* box : {first, second, first, second}) {
      box->Click();
      EXPECT_NE(first->Checked(), second->Checked());
      EXPECT_TRUE(box->Checked() && !page.bulk_go_btn.Enabled());
    }
  }
  files.Put(L"C:\\m\\a.mp3");
  files.Put(L"C:\\m\\b.ogg");
  prompts.openFiles = {L"C:\\m", {L"b.ogg", L"a.mp3"}};
  page.add_btn.Click();
  page.add_btn.Click();
  EXPECT_EQ(page.bulk_lst.Count(), 4);
  page.bulk_go_btn.Click();
  page.reset_btn.Click();
  EXPECT_FALSE(page.bulk_go_btn.Enabled() || page.bulk_undo_btn.Enabled());
  prompts.dialogs.emplace_back(PressOk);
  page.addfolder_btn.Click();
  EXPECT_EQ(Items(), (Paths{L"C:\\m\\a.mp3", L"C:\\m\\b.ogg"}));
  EXPECT_TRUE(page.bulk_go_btn.Enabled());
  for (CheckBox* box : {&page.unmerge_chk, &page.under_chk}) box->Click();
  EXPECT_FALSE(page.bulk_go_btn.Enabled());
}

TEST_F(Bulk, PreviewsAndUndoesTheLastRunOnly) {
  Add({L"C:\\m\\an ode.MP3", L"C:\\m\\Fine.mp3"});
  const auto row = [&](int i) { return page.bulk_lst.cell(i, 0) + L"|" + page.bulk_lst.cell(i, 1); };
  EXPECT_EQ(row(0), L"an ode.MP3|");
  page.case_chk.Click();
  EXPECT_EQ(row(0) + L" " + row(1), L"an ode.MP3|An Ode.mp3 Fine.mp3|Fine.mp3");
  EXPECT_EQ(page.bulk_lst.mark(0), RowMark::Changed);
  EXPECT_EQ(page.bulk_lst.mark(1), RowMark::None);
  page.uc_rdo.Click();
  page.bulk_go_btn.Click();
  page.bulk_lst.SetItemText(0, L"C:\\M\\AN ode.mp3");  // spelled unlike the file
  page.lc_rdo.Click();
  page.bulk_go_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\m\\an ode.mp3")->name, L"an ode.MP3");
  EXPECT_EQ(files.Content(L"C:\\m\\an ode.mp3"), "was C:\\m\\an ode.MP3");
  page.bulk_undo_btn.Click();
  EXPECT_EQ(files.Find(L"C:\\m\\an ode.mp3")->name, L"AN ode.mp3");

  page.bulk_go_btn.Click();
  page.bulk_lst.Select(0);
  page.bulk_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(page.bulk_lst.Count(), 1);
  EXPECT_FALSE(page.bulk_undo_btn.Enabled());  // the former names don't line up any more
}

TEST_F(Bulk, RenamesAndGivesTheNamesBack) {
  const Paths before = {L"C:\\m\\a b.mp3", L"C:\\m\\x y.mp3", L"C:\\n\\c d.mp3", L"C:\\gone e.mp3", L"C:\\n\\A B"};
  Add(before);
  files.Delete(L"C:\\gone e.mp3");
  files.Delete(L"C:\\m\\x y.mp3");
  files.AddFolder(L"C:\\m\\x y.mp3");
  files.Put(L"C:\\n\\c_d.mp3", "other");
  page.space_chk.Click();
  page.bulk_go_btn.Click();

  // The list shows what was meant even where it was refused.
  const Paths after = {L"C:\\m\\a_b.mp3", L"C:\\m\\x y.mp3", L"C:\\n\\c_d.mp3", L"C:\\gone e.mp3", L"C:\\n\\A B"};
  EXPECT_EQ(Items(), after);
  EXPECT_EQ(prompts.messages, (Paths{L"<169> C:\\n\\c_d.mp3", L"<51>\r\n\r\n<99> 2 5"}));
  EXPECT_EQ(files.Content(L"C:\\m\\a_b.mp3"), "was C:\\m\\a b.mp3");
  EXPECT_EQ(files.Content(L"C:\\n\\c d.mp3"), "was C:\\n\\c d.mp3");
  EXPECT_TRUE(!context.busy && page.bulk_rules_frm.Enabled() && page.bulk_list_frm.Enabled());

  Add({L"C:\\m\\added later.mp3"});
  page.bulk_undo_btn.Click();
  EXPECT_EQ(Items(), (Paths{L"C:\\m\\a b.mp3", L"C:\\m\\x y.mp3", L"C:\\n\\c_d.mp3", L"C:\\gone e.mp3", L"C:\\n\\A B",
                            L"C:\\m\\added later.mp3"}));
  EXPECT_EQ(prompts.messages.back(), L"<46> C:\\n\\c d.mp3 C:\\n\\c_d.mp3");
  EXPECT_EQ(files.Content(L"C:\\m\\a b.mp3"), "was C:\\m\\a b.mp3");
  EXPECT_EQ(files.Content(L"C:\\n\\c_d.mp3"), "other");
  EXPECT_FALSE(page.bulk_undo_btn.Enabled());
}

TEST_F(Bulk, CancelKeepsWhatIsDoneAndOffersNoUndo) {
  Add({L"C:\\m\\a b.mp3", L"C:\\m\\c d.mp3", L"C:\\m\\e f.mp3"});
  page.space_chk.Click();
  page.bulk_go_btn.Click();
  page.space_chk.Click();
  page.under_chk.Click();
  int rounds = 0;
  events.eachTime = [&] {
    EXPECT_TRUE(context.busy);
    page.reset_btn.Click();  // refused
    if (++rounds == 2) context.cancelled = true;
  };
  page.bulk_go_btn.Click();
  events.eachTime = nullptr;
  EXPECT_EQ(Items(), (Paths{L"C:\\m\\a b.mp3", L"C:\\m\\c d.mp3", L"C:\\m\\e_f.mp3"}));
  EXPECT_EQ(files.AllFiles(), Items());
  EXPECT_EQ(prompts.messages.back(), TestText(message::kCancelled));
  EXPECT_FALSE(page.bulk_undo_btn.Enabled() || context.busy);
}

}  // namespace
}  // namespace tagrix
