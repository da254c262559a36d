#include "core/helpers.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/failure.h"
#include "core/text.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(Text, ReadsTheNumberThatATextBeginsWith) {
  EXPECT_EQ(LeadingNumber(L"8080x"), 8080);
  EXPECT_EQ(LeadingNumber(L"  -5"), -5);
  EXPECT_EQ(LeadingNumber(L"12.5 s"), 12.5);
  EXPECT_EQ(LeadingNumber(L"+7"), 7);
  for (const wchar_t* none : {L"", L"  ", L"abc", L"-", L"+-3", L"inf", L"nan", L"-inf"}) {
    EXPECT_EQ(LeadingNumber(none), 0) << Trim(none).size();
  }
  EXPECT_EQ(LeadingInteger(L"2.5"), 2);
  EXPECT_EQ(LeadingInteger(L"3.5"), 4);
  EXPECT_EQ(LeadingInteger(L"99999999999"), 2147483647);
}

TEST(Text, MapsCaseBeyondAscii) {
  EXPECT_EQ(ToUpper(L"straße éàü žćœ ωσ жя"), L"STRAßE ÉÀÜ ŽĆŒ ΩΣ ЖЯ");
  EXPECT_EQ(ToLower(L"ÉÀÜ ŽĆŒ ΩΣ ЖЯ ×"), L"éàü žćœ ωσ жя ×");
  EXPECT_TRUE(EqualIgnoringCase(L"Ÿ", L"ÿ"));
  EXPECT_FALSE(EqualIgnoringCase(L"a", L"ab"));
}

TEST(Text, SplitsAndReplaces) {
  EXPECT_EQ(Split(L"a\\\\b", L"\\"), (std::vector<std::wstring>{L"a", L"", L"b"}));
  EXPECT_EQ(Split(L"", L"\\").size(), 1u);
  EXPECT_EQ(Replace(L"%%1%% and %%1%%", L"%%1%%", L"%%1%%!"), L"%%1%%! and %%1%%!");
}

TEST(FileNames, LoseTheForbiddenCharacters) {
  EXPECT_EQ(CleanAndTrimFileName(L"AC/DC: Live?"), L"ACDC Live");
  EXPECT_EQ(CleanAndTrimFileName(L" \\/:?*\"<>| a  b | "), L"a  b");
  EXPECT_EQ(CleanFileName(L" a: "), L" a ");
}

TEST(Years, AreFourDigitsAndDontBeginWithZero) {
  EXPECT_TRUE(IsYear(L"1973"));
  for (const wchar_t* text : {L"", L"03", L"0073", L"19x3", L"1973 ", L" 197", L"-197"}) EXPECT_FALSE(IsYear(text));
}

TEST(Lists, AreSearchedWithoutRegardToCase) {
  TestContext test;
  ListBox list("lst", true);
  for (const wchar_t* text : {L"b", L"B", L"a"}) list.Add(text, 7);
  EXPECT_TRUE(ListContains(list, L" A "));
  EXPECT_FALSE(ListContains(list, L"ab"));
  EXPECT_TRUE(ListHasPrefix(list, L""));
  EXPECT_FALSE(SelectedInList(test.context, list, L"A"));
  list.Select(2);
  EXPECT_TRUE(SelectedInList(test.context, list, L"A"));
  list.SetValue(0, 1);
  SortList(list);
  EXPECT_EQ(list.ItemText(0) + list.ItemText(1) + list.ItemText(2), L"Bab");
  EXPECT_EQ(list.Value(0), 1);  // values stay where they are
}

TEST(Renaming, NeverOverwritesAndSaysSo) {
  TestContext test;
  test.files.Put(L"C:\\m\\a.mp3", "a");
  test.files.Put(L"C:\\m\\b.mp3", "b");
  EXPECT_FALSE(RenameFile(test.context, L"C:\\m\\a.mp3", L"C:\\m\\b.mp3"));
  EXPECT_EQ(test.prompts.messages, std::vector<std::wstring>{L"<169> C:\\m\\b.mp3"});
  EXPECT_EQ(test.files.Content(L"C:\\m\\a.mp3") + test.files.Content(L"C:\\m\\b.mp3"), "ab");
  EXPECT_TRUE(RenameFile(test.context, L"C:\\m\\a.mp3", L"C:\\m\\A.MP3"));
  EXPECT_EQ(test.files.Find(L"C:\\m\\a.mp3")->name, L"A.MP3");
}

TEST(WritingAFile, LeavesTheOldOneWhereverItFails) {
  for (int n = 1;; ++n) {
    TestContext test;
    test.files.Put(L"C:\\m\\list.m3u", "old");
    test.files.FailCall(n);
    try {
      WriteWholeFile(test.files, L"C:\\m\\list.m3u", "new");
      EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u"), "new");
      EXPECT_GT(n, 4);
      break;
    } catch (const Failure&) {
      test.files.FailCall(0);
      EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u"), "old") << n;
      EXPECT_EQ(test.files.AllFiles().size(), 1u) << n;
    }
  }
}

TEST(Commands, AreRefusedWhileOneRuns) {
  TestContext test;
  int inner = 0;
  RunCommand(test.context, [&] { RunCommand(test.context, [&] { ++inner; }); });
  EXPECT_EQ(inner, 0);
  RunCommand(test.context, [&] { ++inner; });
  EXPECT_EQ(inner, 1);
}

TEST(Commands, OfAnOpenDialogRun) {
  TestContext test;
  int inner = 0;
  Form dialog("dialog");
  test.prompts.dialogs.push_back([&](Form&) { RunCommand(test.context, [&] { ++inner; }); });
  RunCommand(test.context, [&] {
    ShowModal(test.context, dialog);
    RunCommand(test.context, [&] { ++inner; });
  });
  EXPECT_EQ(inner, 1);
}

TEST(Commands, ShowAFailureOnceAndPutEverythingBack) {
  TestContext test;
  Button button("go_btn");
  RunCommand(test.context, [&] {
    const RestoreOnFailure restore{&button};
    SetBusy(test.context, true);
    SetStatus(test.context, L"working");
    button.SetEnabled(false);
    throw Failure(L"Read", L"C:\\a.mp3", L"Gone.");
  });
  EXPECT_EQ(test.prompts.messages, std::vector<std::wstring>{L"<48>\r\n\r\nRead\r\nC:\\a.mp3\r\nGone."});
  EXPECT_FALSE(IsBusy(test.context));
  EXPECT_TRUE(test.context.page_btn[3].Enabled());
  EXPECT_TRUE(button.Enabled());
  EXPECT_EQ(test.context.status_lbl.Text(), L"");
  EXPECT_FALSE(test.context.running);
}

}  // namespace
}  // namespace tagrix
