#include "dialogs/genre.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct ChooseGenreTest : testing::Test, TestContext {
  ChooseGenreTest() { context.styles = {L"rock", L"Pop", L"Rock", L"Blues", L"Pop"}; }
  // Runs `user` on the open dialog.
  template <typename User>
  void Choose(User user) {
    prompts.dialogs.emplace_back(
        [user](Form& form) { user(form, Find<ListBox>(form.layout, "List1"), Find<Button>(form.layout, "ok_btn")); });
    ChooseGenre(context, genre_txt);
  }
  TextBox genre_txt{"genre_txt"};
};

TEST_F(ChooseGenreTest, ListsEveryStyleByCharacterCode) {
  Choose([](Form& form, ListBox& list, Button& ok) {
    std::wstring all;
    for (int i = 0; i < list.Count(); ++i) all += list.ItemText(i) + L" ";
    EXPECT_EQ(all, L"Blues Pop Pop Rock rock ");
    EXPECT_EQ(form.name, "genre");
    EXPECT_FALSE(ok.Enabled());
  });
}

TEST_F(ChooseGenreTest, TakesWhatIsConfirmed) {
  Choose([](Form& form, ListBox& list, Button& ok) {
    list.ClickItem(4);
    EXPECT_TRUE(ok.Enabled());
    ok.Click();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(genre_txt.Text(), L"rock");

  Choose([](Form& form, ListBox& list, Button& ok) {
    EXPECT_EQ(list.SelectedIndex(), 4);
    EXPECT_TRUE(ok.Enabled());
    list.DoubleClickItem(0);
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(genre_txt.Text(), L"Blues");

  Choose([](Form& form, ListBox& list, Button&) {
    list.ClickItem(1);
    form.RequestClose();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(genre_txt.Text(), L"Blues");
}

}  // namespace
}  // namespace tagrix
