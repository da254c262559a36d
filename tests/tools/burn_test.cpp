#include <gtest/gtest.h>

#include "core/publisher.h"
#include "dialogs/fixtures.h"
#include "tools/burn/burn_mod.h"
#include "tools/burn/capacity.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

struct Burn : testing::Test, TestContext {
  Burn() {
    registry.SetRegValue(Hive::LocalMachine, L"Software\\VSO", L"CopyToDVD", L"C:\\Burn er\\");
    files.Put(L"C:\\Burn er\\copytocd.exe");
    files.AddFolder(L"C:\\Tagrix");
    files.Put(L"C:\\m\\a.mp3", SmallMp3(10'000));
    files.Put(L"C:\\m\\b&c.mp3", SmallMp3(20'000));
    files.Put(L"C:\\m\\bad.mp3", std::string(400, '\xFF'));  // a header with reserved values
    files.Put(L"C:\\m\\notes.mp3", "no sound");
    files.Put(L"C:\\m\\d.mp3", SmallMp3(40'000));
    InitBurnPage(page, context);
  }
  void Add(std::vector<std::wstring> names) {
    prompts.openFiles = {L"C:\\m", std::move(names)};
    page.burn_add_btn.Click();
    EXPECT_TRUE(page.burn_frm.Enabled() && !context.busy && context.status_lbl.Text().empty());
  }
  // The compilation with its seconds: "a10 d40".
  std::wstring List() const {
    std::wstring list;
    for (int i = 0; i < page.burn_lst.Count(); ++i) {
      list += (i == 0 ? L"" : L" ") + page.burn_lst.ItemText(i).substr(5, 1);
      list += std::to_wstring(page.burn_lst.Value(i) / 1000);
    }
    return list;
  }
  BurnPage page;
};

TEST_F(Burn, MeasuresWhatIsAddedAndKeepsWhatCancelLeaves) {
  events.Post([&] {
    EXPECT_TRUE(context.busy && !page.burn_frm.Enabled());
    EXPECT_EQ(context.status_lbl.Text(), L"C:\\m\\b&&c.mp3");
    context.cancelled = true;
  });
  Add({L"b&c.mp3", L"a.mp3"});
  EXPECT_EQ(List(), L"b20");
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
  Add({L"notes.mp3", L"bad.mp3", L"d.mp3"});
  EXPECT_EQ(List(), L"b20 a10 d40");
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 1min 10sec ");
  EXPECT_EQ(page.burn_lst.cell(0, 1), L"0:20");

  context.settings.Put(L"LastDir", L"C:\\m");
  page.burn_lst.Remove(0);
  prompts.dialogs.emplace_back(PressOk);
  page.burn_addfolder_btn.Click();  // leaves out what is there
  EXPECT_EQ(List(), L"a10 d40 b20");
}

TEST_F(Burn, TextAndTimeMoveTogether) {
  Add({L"a.mp3", L"b&c.mp3", L"d.mp3"});
  page.burn_lst.Select(1);
  page.burn_lst.Select(2);
  for (int press = 0; press < 2; ++press) {  // the second time the first stands at the top, the second behind it
    page.burn_lst.PressKey(ListKey::MoveUp);
    EXPECT_EQ(List(), L"b20 d40 a10");
  }
  page.burn_lst.PressKey(ListKey::MoveDown);
  EXPECT_EQ(List(), L"a10 b20 d40");
  page.burn_lst.Drag(0, 2);
  page.burn_lst.Drag(2, 1);
  EXPECT_EQ(List(), L"b20 a10 d40");
  page.burn_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(List(), L"b20 d40");
  EXPECT_EQ(page.totalTime, 60'000);
  page.burn_reset_btn.Click();
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 0min 0sec ");
}

TEST_F(Burn, HandsTheListOverAndWaitsForTheEnd) {
  Add({L"d.mp3", L"a.mp3"});
  shell.runsFor = 3;
  events.eachTime = [&] { EXPECT_TRUE(context.busy && !page.burn_frm.Enabled()); };
  const auto start = events.ticks;
  page.burn_btn.Click();
  EXPECT_EQ(files.Content(L"C:\\Tagrix\\list.c2c"), "C:\\m\\d.mp3\r\nC:\\m\\a.mp3\r\n");
  EXPECT_EQ(shell.programs, Texts{L"C:\\Burn er\\copytocd.exe"});
  EXPECT_EQ(shell.commandLines, Texts{L"C:\\Burn er\\copytocd.exe /fl=\"C:\\Tagrix\\list.c2c\" "
                                      L"/cdaudio=\"C:\\Tagrix\\list.c2c\""});
  EXPECT_EQ(events.ticks - start, 300u);

  shell.runsFor = 1000000;
  events.Post([&] { context.cancelled = true; });
  page.burn_btn.Click();  // Cancel ends only the wait
  EXPECT_TRUE(prompts.messages.empty());
  shell.canStart = false;
  page.burn_btn.Click();
  EXPECT_TRUE(prompts.messages.empty());
  files.FailCall(1);
  page.burn_btn.Click();
  EXPECT_EQ(prompts.messages.size(), 1u);
  EXPECT_EQ(shell.programs.size(), 3u);
  EXPECT_TRUE(page.burn_frm.Enabled() && !context.busy);
}

TEST_F(Burn, AsksAboveTheCapacityAndWhenTheProgramIsMissing) {
  page.totalTime = 4'440'000;
  page.burn_btn.Click();
  EXPECT_TRUE(prompts.questions.empty());
  EXPECT_EQ(files.Find(L"C:\\Tagrix\\list.c2c")->size, 0u);  // an empty compilation is handed over, too
  page.totalTime = 4'440'001;
  prompts.answers = {false, false, true};
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 1u);
  files.Delete(L"C:\\Burn er\\copytocd.exe");
  EXPECT_FALSE(DetectCopyToDvd(context) || DetectCopyToDvd(context));
  EXPECT_EQ(prompts.questions, (Texts{L"<174>", L"<173>", L"<173>"}));
  EXPECT_EQ(shell.links, Texts{publisher::kBurnerMakerSite});
}

TEST(Capacity, IsABarOverMinutes) {
  SketchCanvas half({784, 46}), over({784, 46}), little({784, 46});  // 740 for the bar: 10 a minute
  PaintCapacity(half, 37 * 60000);
  EXPECT_EQ(half.Filled(Ink::Good), (std::vector{Rect{22, 0, 370, 28}}));
  EXPECT_TRUE(half.Filled(Ink::Error).empty());
  EXPECT_EQ(half.texts, (Texts{L"74", L"0", L"10", L"20", L"30", L"40", L"50", L"60"}));
  PaintCapacity(over, 148 * 60000);
  EXPECT_EQ(over.Filled(Ink::Good), (std::vector{Rect{22, 0, 370, 28}}));
  EXPECT_EQ(over.Filled(Ink::Error), (std::vector{Rect{392, 0, 370, 28}}));
  PaintCapacity(little, 4'440'001);
  EXPECT_EQ(little.Filled(Ink::Error), (std::vector{Rect{761, 0, 1, 28}}));
  for (const Size size : {Size{0, 0}, Size{44, 0}, Size{54, 10}, Size{104, 20}}) {
    SketchCanvas narrow(size);
    PaintCapacity(narrow, 1e9);
    for (const Point end : narrow.ends) EXPECT_TRUE(end.x >= 0 && end.x < size.width);
  }
  EXPECT_EQ(BurnTime(3'725'400), L"62min 5sec ");
  EXPECT_EQ(BurnTime(59'999.6), L"1min 0sec ");
}

}  // namespace
}  // namespace tagrix
