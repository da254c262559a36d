#include <gtest/gtest.h>

#include "core/publisher.h"
#include "fakes/fakes.h"
#include "tools/burn/burn_mod.h"
#include "tools/burn/capacity.h"

namespace tagrix {
namespace {

using Texts = std::vector<std::wstring>;

// A file of one second and more at 128 kbit/s.
std::string Sound(int seconds) {
  std::string bytes(static_cast<std::size_t>(seconds) * 16000, '\0');
  return bytes.replace(0, 4, "\xFF\xFB\x90\x64");
}

struct Burn : testing::Test, TestContext {
  Burn() {
    registry.SetRegValue(Hive::LocalMachine, L"Software\\VSO", L"CopyToDVD", L"C:\\Burn er\\");
    files.Put(L"C:\\Burn er\\copytocd.exe");
    files.AddFolder(L"C:\\Tagrix");
    files.Put(L"C:\\m\\a.mp3", Sound(10));
    files.Put(L"C:\\m\\b&c.mp3", Sound(20));
    files.Put(L"C:\\m\\notes.mp3", "no sound");
    files.Put(L"C:\\m\\d.mp3", Sound(40));
    InitBurnPage(page, context);
  }
  void Add(std::vector<std::wstring> names) {
    prompts.openFiles = {L"C:\\m", std::move(names)};
    page.burn_add_btn.Click();
    EXPECT_TRUE(page.burn_frm.Enabled());
    EXPECT_FALSE(context.busy);
    EXPECT_EQ(context.status_lbl.Text(), L"");
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

TEST_F(Burn, MeasuresWhatIsAddedAndDropsWhatCannotBe) {
  files.Delete(L"C:\\m\\notes.mp3");
  Add({L"a.mp3", L"b&c.mp3"});
  EXPECT_EQ(List(), L"a10 b20");
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 0min 30sec ");
  files.Put(L"C:\\m\\notes.mp3", "no sound");
  files.Put(L"C:\\m\\bad.mp3", std::string(400, '\xFF'));  // a header with reserved values
  Add({L"notes.mp3", L"bad.mp3", L"d.mp3"});
  EXPECT_EQ(List(), L"a10 b20 d40");
  EXPECT_EQ(page.totalTime, 70000);
  EXPECT_EQ(page.burn_lst.cell(1, 1), L"0:20");

  context.settings.Put(L"LastDir", L"C:\\m");
  page.burn_lst.Remove(0);
  prompts.dialogs.push_back([](Form& form) { Find<Button>(form.layout, "ok_btn").Click(); });
  page.burn_addfolder_btn.Click();  // leaves out what is there
  EXPECT_EQ(List(), L"b20 d40 a10");
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Burn, WhatCancelLeavesStaysPending) {
  events.Post([&] {
    EXPECT_TRUE(context.busy);
    EXPECT_FALSE(page.burn_frm.Enabled());
    EXPECT_EQ(context.status_lbl.Text(), L"C:\\m\\b&&c.mp3");
    context.cancelled = true;
  });
  Add({L"b&c.mp3", L"a.mp3", L"d.mp3"});
  EXPECT_EQ(List(), L"b20");
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
  Add({});
  EXPECT_EQ(List(), L"b20 a10 d40");
  EXPECT_EQ(page.totalTime, 70000);
}

TEST_F(Burn, TextAndTimeMoveTogether) {
  Add({L"a.mp3", L"b&c.mp3", L"d.mp3"});
  page.burn_lst.Select(1);
  page.burn_lst.Select(2);
  page.burn_lst.PressKey(ListKey::MoveUp);
  EXPECT_EQ(List(), L"b20 d40 a10");
  page.burn_up_btn.Click();  // the first stands at the top, the second behind it
  EXPECT_EQ(List(), L"b20 d40 a10");
  EXPECT_TRUE(page.burn_lst.Selected(0) && page.burn_lst.Selected(1));
  page.burn_lst.PressKey(ListKey::MoveDown);
  EXPECT_EQ(List(), L"a10 b20 d40");
  page.burn_lst.Drag(0, 2);
  EXPECT_EQ(List(), L"b20 d40 a10");
  page.burn_lst.Drag(2, 1);
  EXPECT_EQ(List(), L"b20 a10 d40");
  EXPECT_EQ(page.burn_lst.SelectedIndex(), 1);

  page.burn_lst.PressKey(ListKey::Delete);
  EXPECT_EQ(List(), L"b20 d40");
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 1min 0sec ");
  page.burn_reset_btn.Click();
  EXPECT_EQ(page.totalTime, 0);
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 0min 0sec ");
}

TEST_F(Burn, HandsTheListOverAndWaitsForTheEnd) {
  Add({L"d.mp3", L"a.mp3"});
  shell.runsFor = 3;
  int waited = 0;
  events.eachTime = [&] {
    ++waited;
    EXPECT_TRUE(context.busy);
    EXPECT_FALSE(page.burn_frm.Enabled());
  };
  const auto start = events.ticks;
  page.burn_btn.Click();
  EXPECT_EQ(files.Content(L"C:\\Tagrix\\list.c2c"), "C:\\m\\d.mp3\r\nC:\\m\\a.mp3\r\n");
  EXPECT_EQ(shell.programs, Texts{L"C:\\Burn er\\copytocd.exe"});
  EXPECT_EQ(shell.commandLines, Texts{L"C:\\Burn er\\copytocd.exe /fl=\"C:\\Tagrix\\list.c2c\" "
                                      L"/cdaudio=\"C:\\Tagrix\\list.c2c\""});
  EXPECT_EQ(waited, 6);
  EXPECT_EQ(events.ticks - start, 300u);
  EXPECT_TRUE(page.burn_frm.Enabled());
  EXPECT_FALSE(context.busy);

  shell.runsFor = 1000000;
  events.eachTime = {};
  events.Post([&] { context.cancelled = true; });
  page.burn_btn.Click();  // Cancel ends only the wait
  EXPECT_FALSE(context.busy);
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(Burn, AsksOnlyAboveTheCapacity) {
  page.totalTime = 4'440'000;
  page.burn_btn.Click();
  EXPECT_TRUE(prompts.questions.empty());
  EXPECT_EQ(files.Find(L"C:\\Tagrix\\list.c2c")->size, 0u);  // an empty compilation is handed over, too
  page.totalTime = 4'440'001;
  prompts.answers = {false, true};
  page.burn_btn.Click();
  EXPECT_EQ(prompts.questions, Texts{L"<174>"});
  EXPECT_EQ(shell.programs.size(), 1u);
  shell.canStart = false;
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 2u);
  EXPECT_TRUE(prompts.messages.empty());
  files.FailCall(1);
  prompts.answers = {true};
  page.burn_btn.Click();
  EXPECT_EQ(prompts.messages.size(), 1u);
  EXPECT_EQ(shell.programs.size(), 2u);
  EXPECT_TRUE(page.burn_frm.Enabled());
}

TEST_F(Burn, OffersTheMakersSiteWhenTheProgramIsMissing) {
  EXPECT_TRUE(prompts.questions.empty());
  files.Delete(L"C:\\Burn er\\copytocd.exe");
  prompts.answers = {false, true};
  EXPECT_FALSE(DetectCopyToDvd(context));
  EXPECT_TRUE(shell.links.empty());
  EXPECT_FALSE(DetectCopyToDvd(context));
  page.c2cd_btn.Click();
  EXPECT_EQ(prompts.questions, (Texts{L"<173>", L"<173>"}));
  EXPECT_EQ(shell.links, (Texts{publisher::kBurnerMakerSite, publisher::kBurnerSite}));
}

TEST(BurnTimes, AreWholeMinutesAndSeconds) {
  EXPECT_EQ(BurnTime(3'725'400), L"62min 5sec ");
  EXPECT_EQ(BurnTime(0), L"0min 0sec ");
  EXPECT_EQ(BurnTime(59'999.6), L"1min 0sec ");
}

// Keeps what is drawn.
struct FakeCanvas : Canvas {
  explicit FakeCanvas(Size size) : extent(size) {}
  Size Extent() const override { return extent; }
  void Fill(Rect area, Ink ink) override { filled[ink] = area; }
  void Line(Point, Point, Ink) override {}
  void Text(Rect area, std::wstring_view text, TextPlace, Ink) override {
    EXPECT_TRUE(area.x >= 0 && area.x + area.width <= extent.width);
    labels.emplace_back(text);
  }
  Size extent;
  std::map<Ink, Rect> filled;
  Texts labels;
};

TEST(Capacity, IsABarOverMinutes) {
  FakeCanvas half({784, 46});  // 740 for the bar: 10 a minute
  PaintCapacity(half, 37 * 60000);
  EXPECT_EQ(half.filled[Ink::Good], (Rect{22, 0, 370, 28}));
  EXPECT_FALSE(half.filled.contains(Ink::Error));
  EXPECT_EQ(half.labels, (Texts{L"74", L"0", L"10", L"20", L"30", L"40", L"50", L"60"}));

  FakeCanvas over({784, 46});
  PaintCapacity(over, 148 * 60000);
  EXPECT_EQ(over.filled[Ink::Good], (Rect{22, 0, 370, 28}));
  EXPECT_EQ(over.filled[Ink::Error], (Rect{392, 0, 370, 28}));

  FakeCanvas little({784, 46});
  PaintCapacity(little, 4'440'001);
  EXPECT_EQ(little.filled[Ink::Error], (Rect{761, 0, 1, 28}));
  for (const Size size : {Size{0, 0}, Size{10, 10}, Size{60, 20}}) {
    FakeCanvas narrow({size.width + 44, size.height});
    PaintCapacity(narrow, 1e9);
  }
}

}  // namespace
}  // namespace tagrix
