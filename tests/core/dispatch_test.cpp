#include "core/dispatch.h"

#include <gtest/gtest.h>

#include "base/failure.h"
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
  EXPECT_EQ(test.prompts.messages,
            (std::vector<std::wstring>{L"<48>\r\n\r\n<232>\r\nC:\\a.mp3\r\nGone.", L"<48>\r\n\r\n<242>\r\n<248>"}));
  EXPECT_FALSE(test.context.running);
}

}  // namespace
}  // namespace tagrix
