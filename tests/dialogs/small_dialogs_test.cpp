// The dialogs of one field: a genre out of the list, a track's title.
#include <gtest/gtest.h>

#include "dialogs/genre_picker.h"
#include "dialogs/trackedit.h"
#include "fakes/fakes.h"

namespace tagrix {

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
      EXPECT_EQ(list.Texts(), (std::vector<std::wstring>{L"Blues", L"Pop", L"Pop", L"Rock", L"rock"}));
      EXPECT_EQ(list.SelectedIndex(), expected.selected);
      EXPECT_EQ(form.defaultButton->Enabled(), expected.selected >= 0);
      list.ClickItem(expected.clicked);
      expected.rest(form, list);
      EXPECT_TRUE(form.Closing());
    });
    ChooseGenre(test.context, genre_txt);
    EXPECT_EQ(genre_txt.Text(), expected.genre);
  }
}

TEST(TrackEdit, WritesTheTrimmedTitleOnOkOnly) {
  TestContext test;
  DiscTrack track{L"Title", 1000};
  for (const bool ok : {false, true}) {
    test.prompts.dialogs.emplace_back([ok](Form& form) {
      EXPECT_EQ(Find<TextBox>(form.layout, "name_txt").Text(), L"Title");
      Find<TextBox>(form.layout, "name_txt").Type(L"  Nine Lives ");
      Find<Button>(form.layout, ok ? "ok_btn" : "cancel_btn").Click();
      EXPECT_TRUE(form.Closing());
    });
    EXPECT_EQ(EditTrackName(test.context, track), ok);
    EXPECT_EQ(track.title, ok ? L"Nine Lives" : L"Title");
    EXPECT_EQ(track.edited, ok);
  }
}

}  // namespace tagrix
