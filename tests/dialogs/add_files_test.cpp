#include "dialogs/add_files.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct AddFiles : testing::Test, TestContext {
  AddFiles() {
    for (const wchar_t* path : {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3", L"C:\\root.mp3"}) files.Put(path);
  }
  std::vector<std::wstring> Choose(std::wstring folder, std::vector<std::wstring> names) {
    prompts.openFiles = {std::move(folder), std::move(names)};
    return ChooseFiles(context, {MediaFilter(L"Media files")});
  }
  std::wstring LastDir() { return context.settings.Get(L"LastDir"); }
};

using Paths = std::vector<std::wstring>;

TEST_F(AddFiles, KeepsTheOrderAndTheFolder) {
  EXPECT_EQ(Choose(L"C:\\m", {L"b.mp3", L"a.mp3"}), (Paths{L"C:\\m\\b.mp3", L"C:\\m\\a.mp3"}));
  EXPECT_EQ(LastDir(), L"C:\\m");
  EXPECT_EQ(Choose(L"C:\\m", {L"a.mp3"}), Paths{L"C:\\m\\a.mp3"});
  EXPECT_EQ(LastDir(), L"C:\\m\\");
  EXPECT_EQ(Choose(L"C:\\", {L"root.mp3"}), Paths{L"C:\\root.mp3"});
  EXPECT_EQ(LastDir(), L"C:\\");
}

TEST_F(AddFiles, LeavesOutWhatHasVanished) {
  context.settings.Put(L"LastDir", L"C:\\m");
  EXPECT_EQ(Choose(L"C:\\x", {L"gone.mp3"}), Paths{});
  EXPECT_EQ(Choose(L"C:\\x", {}), Paths{});
  EXPECT_EQ(LastDir(), L"C:\\m");
  EXPECT_EQ(Choose(L"C:\\m", {L"gone.mp3", L" ", L"a.mp3", L"c.mp3:s"}), (Paths{L"C:\\m\\a.mp3", L"C:\\m\\c.mp3:s"}));
}

TEST_F(AddFiles, StartsInTheLastFolderOrAmongTheMusic) {
  for (const auto& [last, start] :
       {std::pair(L"", L"C:\\Users\\me\\Music"), std::pair(L"C:\\gone", files.musicFolder.c_str()),
        std::pair(L"C:\\root.mp3", files.musicFolder.c_str()), std::pair(L" C:\\m\\ ", L"C:\\m\\")}) {
    context.settings.Put(L"LastDir", last);
    Choose(L"", {});
    EXPECT_EQ(prompts.lastRequest.folder, start);
  }
  EXPECT_EQ(prompts.lastRequest.title, L"Tagrix");
  EXPECT_EQ(prompts.lastRequest.filters[0].label, L"Media files (*.mp3; *.ogg; *.vqf; *.ape; *.mpc; *.wma; *.wav)");
}

}  // namespace
}  // namespace tagrix
