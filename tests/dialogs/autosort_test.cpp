#include "dialogs/autosort.h"

#include <gtest/gtest.h>

#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

struct AutoSortTest : testing::Test, TestContext {
  AutoSortTest() {
    session.folder = L"C:\\m";
    for (const auto& [name, time] : {std::pair(L"c.mp3", 900), {L"a.mp3", 300}, {L"b.mp3", 600}}) {
      files.Put(AlbumPath(session, name), SmallMp3(time));
      session.files.push_back({name, 5});
    }
    for (const int frames : {22, 45, 67}) session.disc.tracks.push_back({L"Title", frames});
  }
  // Opens the dialog and lets `user` work it; returns the order of the album's files afterwards.
  std::wstring Open(const std::function<void(Form&, Button& search, Button& ok, ListBox&)>& user) {
    prompts.dialogs.emplace_back([&](Form& form) {
      user(form, Find<Button>(form.layout, "search_btn"), Find<Button>(form.layout, "ok_btn"),
           Find<ListBox>(form.layout, "lst"));
      EXPECT_TRUE(form.Closing());
    });
    AutoSort(context, session);
    std::wstring names;
    for (const AlbumFile& file : session.files) names += file.name[0];
    return names;
  }
  static std::wstring Names(const ListBox& list) {
    std::wstring names;
    for (const std::wstring& text : list.Texts()) names += text.substr(0, 1);
    return names;
  }
  AlbumSession session;
};

TEST_F(AutoSortTest, HandsOverOnlyWhenConfirmedAndClosesAtAnyTime) {
  const auto leave = [&](Form& form, Button& search, Button& ok, ListBox& lst) {
    events.eachTime = [&] {
      form.RequestClose();
      ok.Click();
      EXPECT_FALSE(lst.Enabled() || search.Enabled());
    };
    search.Click();
    events.eachTime = nullptr;
    EXPECT_EQ(lst.Value(1), 0) << "it goes on measuring";
  };
  EXPECT_EQ(Open(leave), L"cab");
  const auto look = [&](Form& form, Button& search, Button& ok, ListBox& lst) {
    EXPECT_FALSE(ok.Enabled() || Find<OptionButton>(form.layout, "Q_rdo").Enabled());
    search.Click();
    EXPECT_EQ(form.defaultButton, &ok);
    EXPECT_EQ(Names(lst), L"abc");
    EXPECT_EQ(lst.Value(0), 300);
    form.RequestClose();
  };
  EXPECT_EQ(Open(look), L"cab");
  const auto confirm = [&](Form&, Button& search, Button& ok, ListBox&) {
    search.Click();
    ok.Click();
  };
  EXPECT_EQ(Open(confirm), L"abc");
  EXPECT_EQ(session.files[0].milliseconds, 0);
}

TEST_F(AutoSortTest, CountsWhatCannotBeMeasuredAsNoTimeButEndsAtAFileThatCannotBeRead) {
  files.Put(L"C:\\m\\b.mp3", std::string(4000, 'x'));
  const auto search = [&](Form& form, Button& search_btn, Button& ok, ListBox& lst) {
    search_btn.Click();
    EXPECT_EQ(Names(lst), L"acb");  // the last track gets what is left
    EXPECT_EQ(lst.Value(2), 0);
    files.Delete(L"C:\\m\\a.mp3");
    search_btn.Click();
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_FALSE(ok.Enabled());
    EXPECT_TRUE(search_btn.Enabled() && lst.Enabled());
    form.RequestClose();
  };
  EXPECT_EQ(Open(search), L"cab");
}

}  // namespace
}  // namespace tagrix
