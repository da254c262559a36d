#include "core/helpers.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "core/failure.h"
#include "core/text.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(Text, ReadsTheNumberThatATextBeginsWith) {
  const struct {
    const wchar_t* text;
    double number;
  } cases[] = {{L"8080x", 8080}, {L"  -5", -5}, {L"12.5 s", 12.5}, {L"+7", 7}, {L"", 0}, {L"+-3", 0}, {L"inf", 0}};
  for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(text), number) << Trim(text).size();
  EXPECT_EQ(LeadingInteger(L"2.5"), 2);
  EXPECT_EQ(LeadingInteger(L"3.5"), 4);
  EXPECT_EQ(LeadingInteger(L"99999999999"), 2147483647);
}

TEST(Text, IsMappedSplitAndReplaced) {
  EXPECT_EQ(ToUpper(L"straße éàü žćœ ωσ жя"), L"STRAßE ÉÀÜ ŽĆŒ ΩΣ ЖЯ");
  EXPECT_EQ(ToLower(L"ÉÀÜ ŽĆŒ ΩΣ ЖЯ ×"), L"éàü žćœ ωσ жя ×");
  EXPECT_TRUE(EqualIgnoringCase(L"Ÿ", L"ÿ"));
  EXPECT_EQ(Split(L"a\\\\b", L"\\"), (std::vector<std::wstring>{L"a", L"", L"b"}));
  EXPECT_EQ(Replace(L"%%1%% and %%1%%", L"%%1%%", L"%%1%%!"), L"%%1%%! and %%1%%!");
}

TEST(FileNames, LoseTheForbiddenCharacters) {
  EXPECT_EQ(CleanAndTrimFileName(L" \\/:?*\"<>| a  b | "), L"a  b");
  EXPECT_EQ(CleanFileName(L" a: "), L" a ");
}

TEST(Years, AreFourDigitsAndDontBeginWithZero) {
  EXPECT_TRUE(IsYear(L"1973"));
  for (const wchar_t* text : {L"03", L"0073", L"19x3", L"1973 "}) EXPECT_FALSE(IsYear(text));
}

TEST(Lists, AreSearchedWithoutRegardToCase) {
  TestContext test;
  ListBox list("lst", true);
  for (const wchar_t* text : {L"b", L"B", L"a"}) list.Add(text, 7);
  EXPECT_TRUE(ListContains(list, L" A "));
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
}

TEST(WritingAFile, LeavesTheOldOneAndWhatLiesBesideItWhereverItFails) {
  bool failed = true;
  for (int n = 1; failed; ++n) {
    TestContext test;
    test.files.Put(L"C:\\m\\list.m3u", "old");
    test.files.Put(L"C:\\m\\list.m3u.new", "the user's");
    test.files.FailCall(n);
    try {
      WriteWholeFile(test.files, L"C:\\m\\list.m3u", "new");
      EXPECT_GT(n, 4);
      failed = false;
    } catch (const Failure&) {
    }
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u"), failed ? "old" : "new") << n;
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u.new"), "the user's");
    EXPECT_EQ(test.files.AllFiles().size(), 2u) << n;
  }
}

TEST(Commands, AreRefusedWhileOneRunsButForThoseOfItsDialog) {
  TestContext test;
  int inner = 0;
  Form dialog("dialog");
  const auto count = [&] { RunCommand(test.context, [&] { ++inner; }); };
  test.prompts.dialogs.push_back([&](Form&) { count(); });
  RunCommand(test.context, [&] {
    count();
    EXPECT_EQ(inner, 0);
    ShowModal(test.context, dialog);
    count();
  });
  EXPECT_EQ(inner, 1);
  count();
  EXPECT_EQ(inner, 2);
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
  EXPECT_TRUE(button.Enabled());
  EXPECT_EQ(test.context.status_lbl.Text(), L"");
  EXPECT_FALSE(test.context.running);
}

}  // namespace
}  // namespace tagrix
