#include "dialogs/choose_files.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Paths = std::vector<std::wstring>;

TEST(ChooseFiles, KeepsTheOrderAndTheFolderAndLeavesOutWhatHasVanished) {
  TestContext test;
  for (const wchar_t* path : {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3", L"C:\\root.mp3"}) test.files.Put(path);
  const struct {
    OpenFilesAnswer answer;
    Paths paths;
    const wchar_t* lastDir;
  } cases[] = {{{L"C:\\m", {L"b.mp3", L"a.mp3"}}, {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3"}, L"C:\\m"},
               {{L"C:\\m", {L"a.mp3"}}, {L"C:\\m\\a.mp3"}, L"C:\\m\\"},
               {{L"C:\\x", {L"gone.mp3"}}, {}, L"C:\\m\\"},
               {{L"C:\\m", {L"c.mp3:s"}}, {}, L"C:\\m\\"},
               {{L"C:\\", {L"root.mp3"}}, {L"C:\\root.mp3"}, L"C:\\"},
               {{L"C:\\m", {L"gone.mp3", L" ", L"a.mp3", L"c.mp3:s"}}, {L"C:\\m\\a.mp3", L"C:\\m\\c.mp3:s"}, L"C:\\m"}};
  for (const auto& expected : cases) {
    test.prompts.openFiles = expected.answer;
    EXPECT_EQ(ChooseFiles(test.context, {MediaFilter(L"Media files")}), expected.paths);
    EXPECT_EQ(test.context.settings.Get(setting::kLastDir), expected.lastDir);
  }
  EXPECT_EQ(test.prompts.lastRequest.filters[0].label,
            L"Media files (*.mp3; *.ogg; *.vqf; *.ape; *.mpc; *.wma; *.wav)");
}

}  // namespace
}  // namespace tagrix
