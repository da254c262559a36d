// Commands, and the long works that they start.
#include <gtest/gtest.h>

#include <stdexcept>

#include "base/failure.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/notices.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

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

TEST(Commands, ShowAFailureOnceInTheWordsOfTheLanguage) {
  TestContext test;
  RunCommand(test.context, [] { throw Failure(Action::Read, L"C:\\a.mp3", L"Gone."); });
  RunCommand(test.context, [] { throw Failure(Action::Tag, {}, Cause::TextTooLong); });
  EXPECT_EQ(test.prompts.messages, (Texts{L"<48>\r\n\r\n<232>\r\nC:\\a.mp3\r\nGone.", L"<48>\r\n\r\n<242>\r\n<248>"}));
  EXPECT_FALSE(test.context.running);
}

struct LongWorkTest : testing::Test, TestContext {
  void ExpectSeen(bool seen) {
    EXPECT_EQ(IsBusy(context), seen);
    EXPECT_EQ(AtWork(context), seen);
    for (const Button& page : context.page_btn) EXPECT_NE(page.Enabled(), seen);
    EXPECT_EQ(context.status_lbl.Text(), seen ? L"R&&B" : L"");
  }
};

TEST_F(LongWorkTest, EverythingIsAsItWasOnEveryWayOut) {
  Button go_btn("go_btn"), off_btn("off_btn");
  ProgressBox bar("bar");
  Label percentage("percentage");
  off_btn.SetEnabled(false);
  for (const bool fails : {false, true}) {
    try {
      LongWork work(context, {&go_btn, &off_btn}, bar, &percentage);
      work.Status(L"R&B");
      work.Percent(40);
      ExpectSeen(true);
      EXPECT_FALSE(go_btn.Enabled() || off_btn.Enabled());
      EXPECT_EQ(bar.Percent(), 40);
      EXPECT_EQ(percentage.Text(), L"40 %");
      if (fails) throw std::runtime_error("on the way");
    } catch (const std::runtime_error&) {
    }
    ExpectSeen(false);
    EXPECT_TRUE(go_btn.Enabled() && !off_btn.Enabled());
    EXPECT_EQ(bar.Percent(), 0);
    EXPECT_EQ(percentage.Text(), L"");
  }
}

TEST_F(LongWorkTest, NothingIsSeenOfWhatRunsInTheBackground) {
  SilentWork silent(context);
  silent.Pass(L"other");
  silent.Percent(30);
  ExpectSeen(false);
  EXPECT_EQ(context.progress_box.Percent(), 0);
  LongWork work(context);
  work.Pass(L"R&B");
  work.Percent(40);
  { const SilentWork other(context); }
  ExpectSeen(true);
  EXPECT_EQ(context.progress_box.Percent(), 40);
}

TEST_F(LongWorkTest, CancelEndsTheInnermostThatIsSeenAndTheEndOfTheProgramAll) {
  CancelWork(context);  // nothing to cancel
  const SilentWork silent(context);
  const LongWork outer(context);
  {
    const LongWork inner(context);
    const SilentWork innermost(context);
    CancelWork(context);
    EXPECT_TRUE(inner.Cancelled());
    EXPECT_FALSE(outer.Cancelled() || silent.Cancelled() || innermost.Cancelled());
  }
  CancelWork(context);
  EXPECT_TRUE(outer.Cancelled() && !silent.Cancelled());
  EXPECT_FALSE(LongWork(context).Cancelled());
  CancelAllWork(context);
  EXPECT_TRUE(silent.Cancelled());
}

TEST_F(LongWorkTest, QuickItemsAreShownEvery40Milliseconds) {
  LongWork work(context);
  work.Pass(L"a");
  for (const auto& [after, shown, rounds] : {std::tuple(39, L"a", 1), {1, L"b", 2}, {0, L"b", 2}}) {
    events.ticks += static_cast<std::uint64_t>(after);
    work.Pass(L"b");
    EXPECT_EQ(context.status_lbl.Text(), shown);
    EXPECT_EQ(events.rounds, rounds);
  }
}

}  // namespace
}  // namespace tagrix
