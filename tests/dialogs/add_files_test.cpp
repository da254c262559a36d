#include "dialogs/add_files.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

using Paths = std::vector<std::wstring>;

struct AddFiles : testing::Test, TestContext {
  AddFiles() {
    for (const wchar_t* path : {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3", L"C:\\root.mp3"}) files.Put(path);
  }
};

TEST_F(AddFiles, KeepsTheOrderAndTheFolderAndLeavesOutWhatHasVanished) {
  const struct {
    OpenFilesAnswer answer;
    Paths paths;
    const wchar_t* lastDir;
  } cases[] = {{{L"C:\\m", {L"b.mp3", L"a.mp3"}}, {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3"}, L"C:\\m"},
               {{L"C:\\m", {L"a.mp3"}}, {L"C:\\m\\a.mp3"}, L"C:\\m\\"},
               {{L"C:\\x", {L"gone.mp3"}}, {}, L"C:\\m\\"},
               {{L"C:\\x", {}}, {}, L"C:\\m\\"},
               {{L"C:\\m", {L"c.mp3:s"}}, {}, L"C:\\m\\"},
               {{L"C:\\", {L"root.mp3"}}, {L"C:\\root.mp3"}, L"C:\\"},
               {{L"C:\\m", {L"gone.mp3", L" ", L"a.mp3", L"c.mp3:s"}}, {L"C:\\m\\a.mp3", L"C:\\m\\c.mp3:s"}, L"C:\\m"}};
  for (const auto& expected : cases) {
    prompts.openFiles = expected.answer;
    EXPECT_EQ(ChooseFiles(context, {MediaFilter(L"Media files")}), expected.paths);
    EXPECT_EQ(context.settings.Get(L"LastDir"), expected.lastDir);
  }
  EXPECT_EQ(prompts.lastRequest.filters[0].label, L"Media files (*.mp3; *.ogg; *.vqf; *.ape; *.mpc; *.wma; *.wav)");
}

TEST_F(AddFiles, StartsInTheLastFolderOrAmongTheMusic) {
  for (const auto& [last, start] : {std::pair(L"", files.musicFolder.c_str()),
                                    {L"C:\\gone", files.musicFolder.c_str()},
                                    {L"C:\\root.mp3", files.musicFolder.c_str()},
                                    {L" C:\\m\\ ", L"C:\\m\\"}}) {
    context.settings.Put(L"LastDir", last);
    ChooseFiles(context, {});
    EXPECT_EQ(prompts.lastRequest.folder, start);
  }
}

}  // namespace
}  // namespace tagrix
