#include <gtest/gtest.h>

#include "core/long_work.h"
#include "dialogs/fixtures.h"
#include "tools/lister/lister_mod.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

TEST(ListerPattern, ExpandsTokensInOrder) {
  const struct {
    const wchar_t *name, *folder, *pattern, *line;
  } cases[] = {{L"01.mp3", L"C:\\M\\", L"  [%3] %5%1%2 (%4) ", L"[MP3] C:\\M\\01.mp3 (5,56 Mb)"},
               {L"01.mp3", L"C:\\M\\", L"%%1 %1%1 %6 %%", L"%01 0101 %6 %%"},
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
         {L"C:\\m\\b.mp3", L"C:\\m\\B.MP3x", L"C:\\m\\C.Mp3", L"C:\\m\\c.ogg", L"C:\\m\\mp3", L"C:\\m\\Z\\deep\\1.mp3",
          L"C:\\m\\Z\\deep\\2.wav", L"C:\\m\\a\\0mp3", L"C:\\m\\empty\\x.txt", L"C:\\m\\up\\again.mp3"}) {
      files.Put(path, std::string(1048576 / 4, 'x'));
    }
    files.AddLink(L"C:\\m\\up");
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
    prompts.dialogs.emplace_back(Pick(folder));
    page.input_btn.Click();
    EXPECT_EQ(page.lister_input_txt.Text(), folder);
  }
  prompts.dialogs.emplace_back(PressOk);
  page.output_btn.Click();
  page.pattern_txt.Type(L"%3 %4");
  EXPECT_EQ(page.sample_lbl.Text(), L"<108> MP3 5,56 Mb");
  Run();
  EXPECT_EQ(files.Content(L"C:\\m\\Z.txt"), "[C:\\m]\r\nMP3 0.25 Mb\r\nMP3 0.25 Mb\r\n\r\n");
  ListerPage next;
  InitListerPage(next, context);
  EXPECT_EQ(next.pattern_txt.Text(), L"%3 %4");
}

TEST_F(Lister, ListsFoldersThatAreTooLongToBeHeldAtOnce) {
  std::string expected = "[C:\\m]\r\n";
  for (int i = 0; i < 40'000; ++i) {
    files.Put(L"C:\\m\\" + std::to_wstring(100'000 + i * 7 % 40'000) + L".mp3");
    expected += "[MP3] " + std::to_string(100'000 + i) + ".mp3\r\n";
  }
  EXPECT_EQ(Run(), expected + "[MP3] C.Mp3\r\n[MP3] b.mp3\r\n\r\n");
}

TEST_F(Lister, ListsByCharacterCodeAndTheTreeBreadthFirst) {
  const std::string own = "[C:\\m]\r\n[MP3] C.Mp3\r\n[MP3] b.mp3\r\n\r\n", a = "[C:\\m\\a]\r\n[MP3] 0mp3\r\n\r\n",
                    deep = "[C:\\m\\Z\\deep]\r\n[MP3] 1.mp3\r\n[WAV] 2.wav\r\n\r\n";
  EXPECT_EQ(Run(), own);
  page.recurse_chk.Click();
  page.ext_lst.Select(6);
  EXPECT_EQ(Run(), own + a + deep);
  EXPECT_EQ(context.status_lbl.Text(), L"<331> 5 C:\\out\\list.txt");
  EXPECT_TRUE(prompts.messages.empty());
  files.beforeCall = [&](const std::wstring& path) {
    if (path == L"C:\\m\\a\\" || path == L"C:\\m\\empty\\") files.FailCall(1);
  };
  EXPECT_EQ(Run(), own + deep);
  EXPECT_EQ(prompts.messages, Texts{L"<228> \r\nC:\\m\\a\r\nC:\\m\\empty"});
}

TEST_F(Lister, TidiesWhatWasTypedAndRefusesWhatItCannotDo) {
  const struct {
    const wchar_t *input, *output, *name, *file, *message;
  } cases[] = {{L" C: ", L"C:", L" l:ist.TXT ", L"C:\\list.TXT.txt", nullptr},  // a drive means its root
               {L"C:\\", L"C:\\out", L"con", L"C:\\out\\con_.txt", nullptr},
               {L"C:\\m\\b.mp3", L"C:\\out", L"x", L"C:\\out\\x.txt", L"<114>"},
               {L"C:\\m", L"C:\\gone", L"x", L"C:\\gone\\x.txt", L"<114>"}};
  files.Put(L"C:\\top.mp3");
  page.pattern_txt.SetText(L"%5%1");
  for (const auto& expected : cases) {
    page.ficname_txt.Type(expected.name);
    page.lister_input_txt.SetText(expected.input);
    page.lister_output_txt.SetText(expected.output);
    Run();
    EXPECT_EQ(prompts.messages, expected.message == nullptr ? Texts{} : Texts{expected.message});
    EXPECT_EQ(files.Content(expected.file), expected.message == nullptr ? "[C:\\]\r\nC:\\top\r\n\r\n" : "");
    prompts.messages.clear();
  }
  page.lister_output_txt.SetText(L"C:\\out");
  page.ext_lst.Select(0, false);
  Run();
  EXPECT_EQ(prompts.messages, Texts{L"<115>"});
}

TEST_F(Lister, CancelAndErrorsLeaveWhatWasThere) {
  files.Put(L"C:\\out\\list.txt", "old");
  for (int i = 0; i < 600; ++i) files.Put(L"C:\\m\\f" + std::to_wstring(i) + L".mp3");
  const Texts before = files.AllFiles();
  events.Post([&] {
    EXPECT_FALSE(page.lister_go_btn.Enabled());
    CancelWork(context);
  });
  EXPECT_EQ(Run(), "old");
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
  page.pattern_txt.SetText(std::wstring(200, L'x'));  // long enough to be written in pieces
  int call = 0;
  while (!prompts.messages.empty()) {
    prompts.messages.clear();
    files.FailCall(++call);
    const std::size_t size = Run().size();
    EXPECT_EQ(size, prompts.messages.empty() ? 8U + 602 * 202 + 2 : 3U) << call;
    EXPECT_EQ(files.AllFiles(), before) << call;
  }
  EXPECT_GT(call, 5);
}

}  // namespace
}  // namespace tagrix
