// The dialogs that choose files and genres.
#include <gtest/gtest.h>

#include "dialogs/choose_files.h"
#include "dialogs/genre_picker.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(ChooseFiles, KeepsTheOrderAndTheFolderAndLeavesOutWhatHasVanished) {
  TestContext test;
  for (const wchar_t* path : {L"C:\\m\\b.mp3", L"C:\\m\\a.mp3", L"C:\\root.mp3"}) test.files.Put(path);
  const struct {
    OpenFilesAnswer answer;
    Texts paths;
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
  for (const auto& [last, opened] :
       {std::pair(L"C:\\m", L"C:\\m"), {L"C:\\gone", L"C:\\Users\\me\\Music"}, {L"", L"C:\\Users\\me\\Music"}}) {
    test.context.settings.Put(setting::kPageLastDir, last);
    ChooseFiles(test.context, {});
    EXPECT_EQ(test.prompts.lastRequest.folder, opened);
  }
}

TEST(ChooseGenre, ListsEveryStyleByCharacterCodeAndTakesWhatIsConfirmed) {
  TestContext test;
  test.context.styles = {L"rock", L"Pop", L"Rock", L"Blues", L"Pop"};
  TextBox genre_txt{"genre_txt"};
  const struct {
    int selected;  // at first: the field's genre, if it is one
    int clicked;
    void (*rest)(Form&, ListBox&);
    const wchar_t* genre;
  } cases[] = {{-1, 4, [](Form& form, ListBox&) { form.defaultButton->Click(); }, L"rock"},
               {4, 0, [](Form&, ListBox& list) { list.DoubleClickItem(0); }, L"Blues"},
               {0, 1, [](Form& form, ListBox&) { form.RequestClose(); }, L"Blues"}};
  for (const auto& expected : cases) {
    test.prompts.dialogs.emplace_back([&](Form& form) {
      auto& list = Find<ListBox>(form.layout, "List1");
      EXPECT_EQ(list.Texts(), (Texts{L"Blues", L"Pop", L"Pop", L"Rock", L"rock"}));
      EXPECT_EQ(list.SelectedIndex(), expected.selected);
      EXPECT_EQ(form.defaultButton->Enabled(), expected.selected >= 0);
      list.ClickItem(expected.clicked);
      expected.rest(form, list);
      EXPECT_TRUE(form.Closing());
    });
    ChooseGenre(test.context, genre_txt);
    EXPECT_EQ(genre_txt.Text(), expected.genre);
  }
  genre_txt.SetText(L"pop ");
  test.prompts.dialogs.emplace_back([](Form& form) {
    EXPECT_EQ(Find<ListBox>(form.layout, "List1").SelectedIndex(), 1);
    form.RequestClose();
  });
  ChooseGenre(test.context, genre_txt);
}

}  // namespace
}  // namespace tagrix
