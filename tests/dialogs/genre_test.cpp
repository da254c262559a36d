#include "dialogs/genre.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {

TEST(ChooseGenre, ListsEveryStyleByCharacterCodeAndTakesWhatIsConfirmed) {
  TestContext test;
  test.context.styles = {L"rock", L"Pop", L"Rock", L"Blues", L"Pop"};
  TextBox genre_txt{"genre_txt"};
  const auto choose = [&](int selected, const std::function<void(Form&, ListBox&, Button&)>& user) {
    test.prompts.dialogs.emplace_back([&](Form& form) {
      auto& list = Find<ListBox>(form.layout, "List1");
      auto& ok = Find<Button>(form.layout, "ok_btn");
      EXPECT_EQ(list.Texts(), (std::vector<std::wstring>{L"Blues", L"Pop", L"Pop", L"Rock", L"rock"}));
      EXPECT_EQ(list.SelectedIndex(), selected);
      EXPECT_EQ(ok.Enabled(), selected >= 0);
      user(form, list, ok);
      EXPECT_TRUE(form.Closing());
    });
    ChooseGenre(test.context, genre_txt);
    return genre_txt.Text();
  };
  const auto press = [](Form&, ListBox& list, Button& ok) {
    list.ClickItem(4);
    ok.Click();
  };
  EXPECT_EQ(choose(-1, press), L"rock");
  EXPECT_EQ(choose(4, [](Form&, ListBox& list, Button&) { list.DoubleClickItem(0); }), L"Blues");
  const auto cancel = [](Form& form, ListBox& list, Button&) {
    list.ClickItem(1);
    form.RequestClose();
  };
  EXPECT_EQ(choose(0, cancel), L"Blues");
}

}  // namespace tagrix
