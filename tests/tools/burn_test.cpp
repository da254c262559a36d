#include <gtest/gtest.h>

#include "base/publisher.h"
#include "core/long_work.h"
#include "dialogs/fixtures.h"
#include "tools/burn/burn_mod.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct Burn : testing::Test, TestContext {
  Burn() {
    InstallBurner(L"C:\\Burn er\\");
    files.Put(L"C:\\Burn er\\copytocd.exe");
    files.AddFolder(L"C:\\Tagrix");
    files.Put(L"C:\\m\\a.mp3", SmallMp3(10'000));
    files.Put(L"C:\\m\\b&c.mp3", SmallMp3(20'000));
    files.Put(L"C:\\m\\bad.mp3", std::string(400, '\xFF'));  // a header with reserved values
    files.Put(L"C:\\m\\notes.mp3", "no sound");
    files.Put(L"C:\\m\\d.mp3", SmallMp3(40'000));
    InitBurnPage(page, context);
  }
  void InstallBurner(const std::wstring& folder) {
    registry.SetRegValue(Hive::LocalMachine, L"Software\\VSO", L"CopyToDVD", folder);
  }
  void Add(std::vector<std::wstring> names) {
    prompts.openFiles = {L"C:\\m", std::move(names)};
    page.burn_add_btn.Click();
  }
  // Each entry's first letter and time: "a 0:10", "d 0:40".
  Texts List() const {
    Texts list;
    for (int i = 0; i < page.burn_lst.Count(); ++i) {
      list.push_back(page.burn_lst.cell(i, 0).substr(5, 1) + L" " + page.burn_lst.cell(i, 1));
    }
    return list;
  }
  BurnPage page;
};

TEST_F(Burn, MeasuresWhatIsAddedAndKeepsWhatCancelLeaves) {
  events.Post([&] {
    EXPECT_FALSE(page.burn_frm.Enabled());
    EXPECT_EQ(context.status_lbl.Text(), L"C:\\m\\b&&c.mp3");
    CancelWork(context);
  });
  Add({L"b&c.mp3", L"a.mp3"});
  EXPECT_EQ(List(), Texts{L"b 0:20"});
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
  Add({L"notes.mp3", L"bad.mp3", L"d.mp3"});
  EXPECT_EQ(List(), (Texts{L"b 0:20", L"a 0:10", L"d 0:40"}));
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 1min 10sec ");
}

TEST_F(Burn, TextAndTimeMoveTogether) {
  Add({L"a.mp3", L"b&c.mp3", L"d.mp3"});
  for (const int i : {1, 2}) page.burn_lst.Select(i);
  // The second time the first stands at the top, the second behind it.
  for (int press = 0; press < 2; ++press) page.burn_lst.PressKey(ListKey::MoveUp);
  EXPECT_EQ(List(), (Texts{L"b 0:20", L"d 0:40", L"a 0:10"}));
  page.burn_lst.PressKey(ListKey::MoveDown);
  EXPECT_EQ(List(), (Texts{L"a 0:10", L"b 0:20", L"d 0:40"}));
  page.burn_lst.Drag(0, 2);
  EXPECT_EQ(List(), (Texts{L"b 0:20", L"d 0:40", L"a 0:10"}));
  page.burn_lst.PressKey(ListKey::Delete);  // what was dragged is selected
  EXPECT_EQ(List(), (Texts{L"b 0:20", L"d 0:40"}));
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 1min 0sec ");
}

TEST_F(Burn, WaitsForTheEndUnlessCancelledAndSaysWhenTheListCannotBeWritten) {
  Add({L"d.mp3", L"a.mp3"});
  shell.runsFor = 3;
  const auto start = events.ticks;
  page.burn_btn.Click();
  EXPECT_EQ(files.Content(L"C:\\Tagrix\\list.c2c"), "C:\\m\\d.mp3\r\nC:\\m\\a.mp3\r\n");
  EXPECT_EQ(events.ticks - start, 300u);
  shell.runsFor = 1000000;
  events.Post([&] { CancelWork(context); });
  page.burn_btn.Click();  // Cancel ends only the wait
  EXPECT_TRUE(prompts.messages.empty());
  files.FailCall(1);
  page.burn_btn.Click();
  EXPECT_EQ(prompts.messages.size(), 1u);
  EXPECT_EQ(shell.programs.size(), 2u);
}

TEST_F(Burn, AsksAboveTheCapacityAndStartsNothingThatIsNotInstalled) {
  page.totalTime = 4'440'000;
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 1u);  // an empty compilation is handed over, too
  page.totalTime = 4'440'001;
  prompts.answers = {false, true, true};
  page.burn_btn.Click();
  files.Put(L"copytocd.exe");  // in the current folder
  InstallBurner(L"");
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 1u);
  EXPECT_FALSE(DetectCopyToDvd(context));
  EXPECT_EQ(prompts.questions, (Texts{L"<174>", L"<174>", L"<173>"}));
  EXPECT_EQ(shell.links, Texts{publisher::kBurnerMakerSite});
}

}  // namespace
}  // namespace tagrix
