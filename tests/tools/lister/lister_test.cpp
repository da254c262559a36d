#include <gtest/gtest.h>

#include "core/messages.h"
#include "fakes/fakes.h"
#include "tools/lister/lister_mod.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

TEST(ListerPattern, ExpandsTokensInOrder) {
  const ListerValues values = ValuesOf(L"01 - Zero.mp3", 5830000, L"C:\\Music\\", L'.');
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"[%3] %1%2 (%4)", L"[MP3] 01 - Zero.mp3 (5.56 Mb)"},
      {L"  %5%1%2 ", L"C:\\Music\\01 - Zero.mp3"},
      {L"%1%1 %6 %", L"01 - Zero01 - Zero %6 %"},
      {L"100%", L"100%"},
      {L"%%1 %%", L"%01 - Zero %%"},
      {L"", L""},
  };
  for (const auto& [pattern, line] : cases) EXPECT_EQ(ExpandListerPattern(pattern, values), line);
  // A value that holds a later token is expanded again, an earlier one is not.
  EXPECT_EQ(ExpandListerPattern(L"%1|%5", ValuesOf(L"%5.mp3", 0, L"C:\\%1\\", L'.')), L"C:\\%1\\|C:\\%1\\");
  EXPECT_EQ(ExpandListerPattern(L"%%1", ValuesOf(L"2.ogg", 0, L"C:\\", L'.')), L".ogg");
  EXPECT_EQ(ValuesOf(L"x.MP3", 0, L"C:\\", L',').size, L"0,00 Mb");
  EXPECT_EQ(ListerSample(L"%5%1%2 %3 %4"), L"c:\\MP3\\Rock\\SP\\01 - Zero.mp3 MP3 5,56 Mb");
}

struct Lister : testing::Test, TestContext {
  Lister() {
    files.AddFolder(L"C:\\out");
    for (const wchar_t* path :
         {L"C:\\m\\b.mp3", L"C:\\m\\B.MP3x", L"C:\\m\\A.Mp3", L"C:\\m\\c.ogg", L"C:\\m\\mp3", L"C:\\m\\notes.txt",
          L"C:\\m\\Z\\deep\\1.mp3", L"C:\\m\\Z\\deep\\2.wav", L"C:\\m\\a\\0mp3", L"C:\\m\\empty\\x.txt"}) {
      files.Put(path, std::string(1048576 / 4, 'x'));
    }
    files.AddLink(L"C:\\m\\up");
    files.Put(L"C:\\m\\up\\again.mp3");
    InitListerPage(page, context);
    page.lister_input_txt.SetText(L"C:\\m");
    page.lister_output_txt.SetText(L"C:\\out");
    page.ficname_txt.SetText(L"list.txt");
  }
  std::string Run() {
    page.lister_go_btn.Click();
    return files.Content(L"C:\\out\\list.txt");
  }
  ListerPage page;
};

TEST_F(Lister, StartsWithTheLastPattern) {
  EXPECT_EQ(page.pattern_txt.Text(), L"[%3] %1%2");
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> [MP3] 01 - Zero.mp3");
  EXPECT_EQ(page.ext_lst.Count(), 7);
  EXPECT_TRUE(page.ext_lst.Selected(0));
  page.pattern_txt.Choose(2);
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> c:\\MP3\\Rock\\SP\\01 - Zero.mp3");
  page.pattern_txt.Type(L"%2");
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> .mp3");
  Run();
  ListerPage next;
  InitListerPage(next, context);
  EXPECT_EQ(next.pattern_txt.Text(), L"%2");
  TranslateListerPage(next, context);
  EXPECT_EQ(next.pathlp_lbl.Text(), L"%1 : <109>\r\n%2 : <110>\r\n%3 : <111>\r\n%4 : <112>\r\n%5 : <113>\r\n");
}

TEST_F(Lister, ListsTheFolderByCharacterCode) {
  EXPECT_EQ(Run(), "[C:\\m]\r\n[MP3] A.Mp3\r\n[MP3] b.mp3\r\n\r\n");
  EXPECT_FALSE(context.busy);
  EXPECT_TRUE(page.lister_go_btn.Enabled());
  EXPECT_EQ(context.status_lbl.Text(), L"");
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Lister, ListsTheTreeBreadthFirst) {
  page.recurse_chk.Click();
  page.ext_lst.Select(6);
  page.pattern_txt.SetText(L"%5%1%2 %4");
  EXPECT_EQ(Run(),
            "[C:\\m]\r\nC:\\m\\A.Mp3 0.25 Mb\r\nC:\\m\\b.mp3 0.25 Mb\r\n\r\n"
            "[C:\\m\\a]\r\nC:\\m\\a\\0mp3 0.25 Mb\r\n\r\n"
            "[C:\\m\\Z\\deep]\r\nC:\\m\\Z\\deep\\1.mp3 0.25 Mb\r\nC:\\m\\Z\\deep\\2.wav 0.25 Mb\r\n\r\n");
}

TEST_F(Lister, TidiesWhatWasTyped) {
  page.lister_input_txt.SetText(L" C:\\m\\ ");
  page.lister_output_txt.SetText(L" C: ");
  page.ficname_txt.Type(L"a:b?");
  EXPECT_EQ(page.ficname_txt.Text(), L"ab");
  page.ficname_txt.Type(L" list.TXT ");
  Run();
  EXPECT_EQ(page.lister_input_txt.Text(), L"C:\\m\\");
  EXPECT_EQ(page.ficname_txt.Text(), L"list.TXT.txt");
  EXPECT_EQ(files.Content(L"C:\\list.TXT.txt"), "[C:\\m]\r\n[MP3] A.Mp3\r\n[MP3] b.mp3\r\n\r\n");
}

TEST_F(Lister, ListsADriveAsItsRoot) {
  files.Put(L"C:\\top.mp3");
  page.pattern_txt.SetText(L"%5%1");
  for (const wchar_t* drive : {L"C:", L"C:\\"}) {
    page.lister_input_txt.SetText(drive);
    EXPECT_EQ(Run(), "[C:\\]\r\nC:\\top\r\n\r\n");
  }
}

TEST_F(Lister, RefusesWhatItCannotDo) {
  page.lister_input_txt.SetText(L"C:\\m\\b.mp3");
  Run();
  page.lister_input_txt.SetText(L"");
  Run();
  page.lister_input_txt.SetText(L"C:\\m");
  page.ext_lst.Select(0, false);
  Run();
  EXPECT_EQ(prompts.messages, (std::vector<std::wstring>{L"<114>", L"<114>", L"<115>"}));
  EXPECT_FALSE(files.Has(L"C:\\out\\list.txt"));
  EXPECT_TRUE(page.lister_go_btn.Enabled());
  EXPECT_FALSE(context.busy);
}

TEST_F(Lister, CancelLeavesWhatWasThere) {
  files.Put(L"C:\\out\\list.txt", "old");
  for (int i = 0; i < 600; ++i) files.Put(L"C:\\m\\f" + std::to_wstring(i) + L".mp3");
  for (const int cancelAt : {1, 2, 3, 4}) {
    int rounds = 0;
    events.eachTime = [&] {
      if (++rounds == cancelAt) context.cancelled = true;
    };
    EXPECT_EQ(Run(), "old");
    EXPECT_EQ(prompts.messages.back(), TestText(message::kCancelled));
  }
  events.eachTime = nullptr;
  EXPECT_EQ(files.AllFiles().end()[-1], L"C:\\out\\list.txt");
  EXPECT_TRUE(page.lister_go_btn.Enabled());
  EXPECT_GT(Run().size(), 6000U);
}

TEST_F(Lister, AnErrorLeavesWhatWasThere) {
  files.Put(L"C:\\out\\list.txt", "old");
  const auto before = files.AllFiles();
  int call = 1;
  // A folder below that can't be read is passed over, every other failure ends the run.
  for (; call < 40; ++call) {
    prompts.messages.clear();
    files.FailCall(call);
    const std::string content = Run();
    EXPECT_TRUE(page.lister_go_btn.Enabled());
    EXPECT_FALSE(context.busy);
    EXPECT_EQ(files.AllFiles(), before) << call;
    if (prompts.messages.empty()) break;
    EXPECT_EQ(content, "old") << call;
  }
  EXPECT_GT(call, 4);
  files.FailCall(0);
}

TEST_F(Lister, PassesOverFoldersThatCannotBeRead) {
  page.recurse_chk.Click();
  files.beforeCall = [&](const std::wstring& path) {
    if (path == L"C:\\m\\a\\") files.FailCall(1);
  };
  EXPECT_EQ(Run(), "[C:\\m]\r\n[MP3] A.Mp3\r\n[MP3] b.mp3\r\n\r\n[C:\\m\\Z\\deep]\r\n[MP3] 1.mp3\r\n\r\n");
}

TEST_F(Lister, NamesTheCatalogueAfterTheFolder) {
  page.ficname_txt.SetText(L"");
  prompts.dialogs.emplace_back([](Form& form) {
    Find<TreeBox>(form.layout, "Dir1").SetPath(L"C:\\m\\Z");
    Find<Button>(form.layout, "ok_btn").Click();
  });
  page.input_btn.Click();
  EXPECT_EQ(page.lister_input_txt.Text(), L"C:\\m\\Z");
  EXPECT_EQ(page.ficname_txt.Text(), L"Z");
  prompts.dialogs.emplace_back([](Form& form) { Find<Button>(form.layout, "ok_btn").Click(); });
  page.output_btn.Click();
  EXPECT_EQ(page.lister_output_txt.Text(), L"C:\\m\\Z");
}

}  // namespace
}  // namespace tagrix
