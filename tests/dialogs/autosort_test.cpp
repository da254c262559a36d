#include "dialogs/autosort.h"

#include <gtest/gtest.h>

#include "dialogs/small_mp3.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct AutoSortTest : testing::Test, TestContext {
  AutoSortTest() {
    for (const auto& [name, time] : {std::pair(L"c.mp3", 900), std::pair(L"a.mp3", 300), std::pair(L"b.mp3", 600)}) {
      files.Put(std::wstring(L"C:\\m\\") + name, SmallMp3(time));
      mp3_lst.Add(name, 5);
    }
    for (const int frames : {22, 45, 67}) new_lst.Add(L"Title", frames);
  }
  // Opens the dialog and lets `user` work it.
  template <typename User>
  void Open(User user) {
    prompts.dialogs.emplace_back([user](Form& form) {
      user(form, Find<Button>(form.layout, "search_btn"), Find<Button>(form.layout, "ok_btn"),
           Find<ListBox>(form.layout, "lst"));
    });
    AutoSort(context, L"C:\\m", mp3_lst, new_lst);
  }
  std::wstring Names(const ListBox& list) {
    std::wstring names;
    for (int i = 0; i < list.Count(); ++i) names += list.ItemText(i).substr(0, 1);
    return names;
  }
  ListBox mp3_lst{"mp3_lst", true}, new_lst{"new_lst"};
};

TEST_F(AutoSortTest, SortsAndHandsOverOnlyWhenConfirmed) {
  Open([&](Form& form, Button& search, Button& ok, ListBox& lst) {
    EXPECT_EQ(form.name, "Autosort");
    EXPECT_TRUE(Find<OptionButton>(form.layout, "fast_rdo").Checked());
    EXPECT_FALSE(ok.Enabled());
    search.Click();
    EXPECT_EQ(Names(lst), L"abc");
    EXPECT_EQ(lst.Value(0), 300);
    EXPECT_TRUE(ok.Enabled() && lst.Enabled() && search.Enabled());
    form.RequestClose();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(Names(mp3_lst), L"cab");
  EXPECT_EQ(mp3_lst.Value(0), 5);

  Open([&](Form& form, Button& search, Button& ok, ListBox&) {
    search.Click();
    ok.Click();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(Names(mp3_lst), L"abc");
  EXPECT_EQ(mp3_lst.Value(0), 0);
}

TEST_F(AutoSortTest, CannotBeClosedOrConfirmedWhileItSearches) {
  Open([&](Form& form, Button& search, Button& ok, ListBox& lst) {
    std::vector<std::wstring> percents;
    events.eachTime = [&] {
      form.RequestClose();
      search.Click();
      ok.Click();
      EXPECT_FALSE(lst.Enabled());
      percents.push_back(Find<Label>(form.layout, "cur_hst").Text());
    };
    search.Click();
    events.eachTime = nullptr;
    EXPECT_FALSE(form.Closing());
    EXPECT_EQ(percents, (std::vector<std::wstring>{L"0 %", L"33 %", L"66 %", L"66 %", L"33 %", L"66 %", L"100 %"}));
    EXPECT_EQ(Names(lst), L"abc");
  });
  EXPECT_EQ(Names(mp3_lst), L"cab");
}

TEST_F(AutoSortTest, CountsWhatCannotBeMeasuredAsNoTime) {
  files.Put(L"C:\\m\\b.mp3", std::string(4000, 'x'));
  Open([&](Form&, Button& search, Button&, ListBox& lst) {
    search.Click();
    EXPECT_EQ(Names(lst), L"acb");  // the last track gets what is left
    EXPECT_EQ(lst.Value(2), 0);
  });
}

TEST_F(AutoSortTest, EndsWithOneMessageWhenAFileCannotBeRead) {
  Open([&](Form& form, Button& search, Button& ok, ListBox& lst) {
    search.Click();
    files.Delete(L"C:\\m\\a.mp3");
    search.Click();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_FALSE(ok.Enabled());
    EXPECT_TRUE(search.Enabled() && lst.Enabled());
    form.RequestClose();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(Names(mp3_lst), L"cab");
}

}  // namespace
}  // namespace tagrix
