#include <gtest/gtest.h>

#include "core/messages.h"
#include "dialogs/fixtures.h"
#include "tools/lister/lister_mod.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

TEST(ListerPattern, ExpandsTokensInOrder) {
  const struct {
    const wchar_t *name, *folder, *pattern, *line;
  } cases[] = {{L"01.mp3", L"C:\\M\\", L"[%3] %1%2 (%4)", L"[MP3] 01.mp3 (5,56 Mb)"},
               {L"01.mp3", L"C:\\M\\", L"  %5%1%2 ", L"C:\\M\\01.mp3"},
               {L"01.mp3", L"C:\\M\\", L"%%1 %1%1 %6 %%", L"%01 0101 %6 %%"},
               {L"01.mp3", L"C:\\M\\", L"100%", L"100%"},
               // A value that holds a later token is expanded again, an earlier one is not.
               {L"%5.mp3", L"C:\\%1\\", L"%1|%5", L"C:\\%1\\|C:\\%1\\"},
               {L"2.ogg", L"C:\\", L"%%1", L".ogg"}};
  for (const auto& expected : cases) {
    const ListerValues values = ValuesOf(expected.name, 5830000, expected.folder, L',');
    EXPECT_EQ(ExpandListerPattern(expected.pattern, values), expected.line);
  }
}

struct Lister : testing::Test, TestContext {
  Lister() {
    files.AddFolder(L"C:\\out");
    for (const wchar_t* path :
         {L"C:\\m\\b.mp3", L"C:\\m\\B.MP3x", L"C:\\m\\C.Mp3", L"C:\\m\\c.ogg", L"C:\\m\\mp3", L"C:\\m\\notes.txt",
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

TEST_F(Lister, NamesTheCatalogueAfterTheFolderAndStartsWithTheLastPattern) {
  page.ficname_txt.SetText(L"");
  for (const wchar_t* folder : {L"C:\\m\\Z", L"C:\\m"}) {  // the second leaves the name alone
    prompts.dialogs.emplace_back([&](Form& form) {
      Find<TreeBox>(form.layout, "Dir1").SetPath(folder);
      PressOk(form);
    });
    page.input_btn.Click();
    EXPECT_EQ(page.lister_input_txt.Text() + L"|" + page.ficname_txt.Text(), folder + std::wstring(L"|Z"));
  }
  prompts.dialogs.emplace_back(PressOk);
  page.output_btn.Click();
  page.pattern_txt.Choose(2);
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> c:\\MP3\\Rock\\SP\\01 - Zero.mp3");
  page.pattern_txt.Type(L"%3 %4");
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> MP3 5,56 Mb");
  Run();
  EXPECT_EQ(files.Content(L"C:\\m\\Z.txt"), "[C:\\m]\r\nMP3 0.25 Mb\r\nMP3 0.25 Mb\r\n\r\n");
  EXPECT_EQ(context.settings.Get(L"LiserPattern"), L"%3 %4");
  ListerPage next;
  InitListerPage(next, context);
  EXPECT_EQ(next.pattern_txt.Text(), L"%3 %4");
}

TEST_F(Lister, ListsFoldersThatAreTooLongToBeHeldAtOnce) {
  std::string expected = "[C:\\m]\r\n";
  for (int i = 0; i < 40'000; ++i) {
    const std::string name = std::to_string(100'000 + i * 7 % 40'000);
    files.Put(L"C:\\m\\" + Widen(name) + L".mp3");
    expected += "[MP3] " + std::to_string(100'000 + i) + ".mp3\r\n";
  }
  EXPECT_EQ(Run(), expected + "[MP3] C.Mp3\r\n[MP3] b.mp3\r\n\r\n");
}

TEST_F(Lister, ListsByCharacterCodeAndTheTreeBreadthFirst) {
  const std::string own = "[C:\\m]\r\n[MP3] C.Mp3\r\n[MP3] b.mp3\r\n\r\n";
  EXPECT_EQ(Run(), own);
  EXPECT_TRUE(page.lister_go_btn.Enabled() && !context.busy && context.status_lbl.Text().empty());
  page.recurse_chk.Click();
  files.beforeCall = [&](const std::wstring& path) {
    if (path == L"C:\\m\\a\\") files.FailCall(1);  // can't be read: passed over
  };
  EXPECT_EQ(Run(), own + "[C:\\m\\Z\\deep]\r\n[MP3] 1.mp3\r\n\r\n");
  files.beforeCall = nullptr;
  page.ext_lst.Select(6);
  EXPECT_EQ(Run(), own + "[C:\\m\\a]\r\n[MP3] 0mp3\r\n\r\n[C:\\m\\Z\\deep]\r\n[MP3] 1.mp3\r\n[WAV] 2.wav\r\n\r\n");
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Lister, TidiesWhatWasTypedAndListsADriveAsItsRoot) {
  files.Put(L"C:\\top.mp3");
  page.pattern_txt.SetText(L"%5%1");
  for (const wchar_t* drive : {L" C: ", L"C:\\"}) {
    page.ficname_txt.Type(L" l:ist.TXT ");
    page.lister_input_txt.SetText(drive);
    page.lister_output_txt.SetText(drive);
    Run();
    EXPECT_EQ(files.Content(L"C:\\list.TXT.txt"), "[C:\\]\r\nC:\\top\r\n\r\n");
    files.Delete(L"C:\\list.TXT.txt");
  }
}

TEST_F(Lister, RefusesWhatItCannotDo) {
  for (const auto& [input, output, format] :
       {std::tuple(L"C:\\m\\b.mp3", L"C:\\out", true), {L"C:\\m", L"C:\\gone", true}, {L"C:\\m", L"C:\\out", false}}) {
    page.lister_input_txt.SetText(input);
    page.lister_output_txt.SetText(output);
    page.ext_lst.Select(0, format);
    Run();
  }
  EXPECT_EQ(prompts.messages, (std::vector<std::wstring>{L"<114>", L"<114>", L"<115>"}));
  EXPECT_FALSE(files.Has(L"C:\\out\\list.txt") || context.busy);
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
  EXPECT_EQ(files.AllFiles().end()[-1], L"C:\\out\\list.txt");  // nothing lies beside it
  page.pattern_txt.SetText(std::wstring(200, L'x'));
  EXPECT_EQ(Run().size(), 8U + 602 * 202 + 2);  // written in pieces
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
    EXPECT_TRUE(page.lister_go_btn.Enabled() && !context.busy);
    EXPECT_EQ(files.AllFiles(), before) << call;
    if (prompts.messages.empty()) break;
    EXPECT_EQ(content, "old") << call;
  }
  EXPECT_GT(call, 4);
}

}  // namespace
}  // namespace tagrix
