#include "dialogs/trackedit.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {

TEST(TrackEdit, WritesTheTrimmedTitleWithoutABlankBeforeIt) {
  TestContext test;
  ListBox tracks_lst{"tracks_lst"}, new_lst{"new_lst"};
  for (int i = 1; i <= 123; ++i) {
    tracks_lst.Add(L"[" + TwoDigits(i) + L"] Title");
    new_lst.Add(L"Title", 1000 * i);
  }
  const struct {
    int track;
    const char* button;
    const wchar_t *title, *line;
  } cases[] = {{8, "ok_btn", L"Nine Lives", L"[09]Nine Lives"},
               {122, "ok_btn", L"Nine Lives", L"[123]Nine Lives"},
               {0, "cancel_btn", L"Title", L"[01] Title"}};
  for (const auto& expected : cases) {
    tracks_lst.SelectOnly(expected.track);
    test.prompts.dialogs.emplace_back([&](Form& form) {
      EXPECT_EQ(Find<TextBox>(form.layout, "name_txt").Text(), L"Title");
      Find<TextBox>(form.layout, "name_txt").Type(L"  Nine Lives ");
      Find<Button>(form.layout, expected.button).Click();
      EXPECT_TRUE(form.Closing());
    });
    EditTrackName(test.context, tracks_lst, new_lst);
    EXPECT_EQ(new_lst.ItemText(expected.track), expected.title);
    EXPECT_EQ(new_lst.Value(expected.track), 1000 * (expected.track + 1));
    EXPECT_EQ(tracks_lst.ItemText(expected.track), expected.line);
  }
  tracks_lst.SelectOnly(-1);
  EditTrackName(test.context, tracks_lst, new_lst);
  EXPECT_EQ(test.prompts.shown.size(), 3U);
}

}  // namespace tagrix
