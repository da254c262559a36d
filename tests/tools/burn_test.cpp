#include <gtest/gtest.h>

#include "base/publisher.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/fixtures.h"
#include "tools/burn/burn_mod.h"

namespace tagrix {
namespace {

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
  page.burn_reset_btn.Click();
  EXPECT_EQ(page.burn_time_lbl.Text(), L"<172> 0min 0sec ");
}

TEST_F(Burn, WaitsForTheEndUnlessCancelledAndSaysWhenTheListCannotBeWritten) {
  Add({L"d.mp3", L"a.mp3"});
  shell.runsFor = 3;
  const auto start = events.ticks;
  page.burn_btn.Click();
  EXPECT_EQ(files.Content(L"C:\\Tagrix\\list.c2c"), "C:\\m\\d.mp3\r\nC:\\m\\a.mp3\r\n");
  EXPECT_EQ(events.ticks - start, 300u);
  EXPECT_EQ(shell.programs, Texts{L"C:\\Burn er\\copytocd.exe"});
  EXPECT_EQ(shell.commandLines, Texts{L"C:\\Burn er\\copytocd.exe /fl=\"C:\\Tagrix\\list.c2c\" "
                                      L"/cdaudio=\"C:\\Tagrix\\list.c2c\""});
  shell.runsFor = 1000000;
  events.Post([&] {
    EXPECT_EQ(context.status_lbl.Text(), TestText(message::kBurning));
    EXPECT_FALSE(page.burn_frm.Enabled());
    CancelWork(context);
  });
  page.burn_btn.Click();  // Cancel ends only the wait
  EXPECT_TRUE(prompts.messages.empty());
  files.FailCall(1);
  page.burn_btn.Click();
  EXPECT_EQ(prompts.messages.size(), 1u);
  EXPECT_EQ(shell.programs.size(), 2u);
  page.c2cd_btn.Click();
  EXPECT_EQ(shell.links, Texts{publisher::kBurnerSite});
}

TEST_F(Burn, ShowsHowMuchOfADiscIsFilled) {
  const Texts scale{L"74", L"0", L"10", L"20", L"30", L"40", L"50", L"60"},
      longScale{L"74", L"0", L"20", L"40", L"60", L"100", L"120", L"140"};
  const struct {
    double minutes;
    std::vector<Rect> fits, beyond;
    Texts scale;
  } cases[] = {{0, {{22, 0, 0, 32}}, {}, scale},
               {37, {{22, 0, 250, 32}}, {}, scale},
               {74, {{22, 0, 500, 32}}, {}, scale},
               {74.01, {{22, 0, 500, 32}}, {{521, 0, 1, 32}}, scale},  // seen even when it is little
               {148, {{22, 0, 250, 32}}, {{272, 0, 250, 32}}, longScale}};
  for (const auto& expected : cases) {
    SketchCanvas canvas({544, 50});
    page.totalTime = expected.minutes * 60'000;
    page.burn_prog_bar.paint(canvas);
    EXPECT_EQ(canvas.Filled(Ink::Background), (std::vector<Rect>{{23, 1, 498, 30}}));
    EXPECT_EQ(canvas.Filled(Ink::Good), expected.fits) << expected.minutes;
    EXPECT_EQ(canvas.Filled(Ink::Error), expected.beyond) << expected.minutes;
    EXPECT_EQ(canvas.texts, expected.scale);
    EXPECT_EQ(canvas.ends.at(0).x, 22 + static_cast<int>(74 * 499 / std::max(74., expected.minutes)));
  }
  SketchCanvas none({44, 50});
  page.burn_prog_bar.paint(none);
  EXPECT_TRUE(none.fills.empty());
}

TEST_F(Burn, AsksAboveTheCapacityAndStartsNothingThatIsNotInstalled) {
  page.totalTime = 4'440'000;
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 1u);  // an empty compilation is handed over, too
  page.totalTime = 4'440'001;
  prompts.answers = {false, true};
  page.burn_btn.Click();
  files.Put(L"copytocd.exe");  // in the current folder
  InstallBurner(L"");
  page.burn_btn.Click();
  EXPECT_EQ(shell.programs.size(), 1u);
  EXPECT_EQ(prompts.questions, (Texts{L"<174>", L"<174>"}));
}

TEST_F(Burn, OffersTheMakersSiteUntilToldNotTo) {
  EXPECT_TRUE(DetectCopyToDvd(context));
  InstallBurner(L"");
  const auto answer = [&](bool yes, bool again) {
    prompts.dialogs.emplace_back([=](Form& form) {
      EXPECT_EQ(form.defaultButton, &Find<Button>(form.layout, "answer1_btn")) << "No";
      if (!again) Find<CheckBox>(form.layout, "again_chk").Click();
      yes ? Find<Button>(form.layout, "answer0_btn").Click() : form.RequestClose();
    });
    EXPECT_FALSE(DetectCopyToDvd(context));
  };
  answer(false, true);
  answer(true, false);  // who wants it may be asked again
  EXPECT_EQ(shell.links, Texts{publisher::kBurnerMakerSite});
  answer(false, false);
  EXPECT_FALSE(DetectCopyToDvd(context));
  EXPECT_EQ(prompts.shown.size(), 3U);
}

}  // namespace
}  // namespace tagrix
