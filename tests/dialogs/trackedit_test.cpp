#include "dialogs/trackedit.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct TrackEditTest : testing::Test, TestContext {
  TrackEditTest() {
    for (int i = 1; i <= 123; ++i) {
      tracks_lst.Add(L"[" + TwoDigits(i) + L"] Title");
      new_lst.Add(L"Title", 1000 * i);
    }
  }
  void Edit(int track, const std::wstring& title, const std::string& button) {
    tracks_lst.SelectOnly(track);
    prompts.dialogs.emplace_back([=](Form& form) {
      EXPECT_EQ(form.name, "trackedit");
      auto& name = Find<TextBox>(form.layout, "name_txt");
      EXPECT_EQ(name.Text(), L"Title");
      name.Type(title);
      Find<Button>(form.layout, button).Click();
      EXPECT_TRUE(form.Closing());
    });
    EditTrackName(context, tracks_lst, new_lst);
  }
  ListBox tracks_lst{"tracks_lst"}, new_lst{"new_lst"};
};

TEST_F(TrackEditTest, WritesTheTrimmedTitleWithoutABlankBeforeIt) {
  Edit(8, L"  Nine Lives ", "ok_btn");
  EXPECT_EQ(new_lst.ItemText(8), L"Nine Lives");
  EXPECT_EQ(new_lst.Value(8), 9000);
  EXPECT_EQ(tracks_lst.ItemText(8), L"[09]Nine Lives");
  Edit(122, L"Last", "ok_btn");
  EXPECT_EQ(tracks_lst.ItemText(122), L"[123]Last");
}

TEST_F(TrackEditTest, LeavesTheListsAlone) {
  Edit(0, L"Other", "cancel_btn");
  EXPECT_EQ(new_lst.ItemText(0), L"Title");
  EXPECT_EQ(tracks_lst.ItemText(0), L"[01] Title");

  tracks_lst.SelectOnly(-1);
  EditTrackName(context, tracks_lst, new_lst);
  EXPECT_EQ(prompts.shown.size(), 1U);
}

}  // namespace
}  // namespace tagrix
