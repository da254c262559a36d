#include "dialogs/statistics.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "core/session.h"
#include "dialogs/small_mp3.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

struct StatisticsTest : testing::Test, TestContext {
  StatisticsTest() {
    files.Put(L"C:\\m\\a.mp3", SmallMp3(1500));
    files.Put(L"C:\\m\\noise.mp3", std::string(4000, 'x'));
    files.Put(L"C:\\m\\b.mp3", SmallMp3(6000));
    for (const wchar_t* name : {L"a.mp3", L"noise.mp3", kFakeTrack, L"gone.mp3", L"b.mp3"}) mp3_lst.Add(name, 7);
    for (int i = 0; i < 5; ++i) new_lst.Add(L"Title", 75);
  }
  template <typename User>
  void Open(User user) {
    prompts.dialogs.emplace_back(user);
    ShowStatistics(context, L"C:\\m", mp3_lst, new_lst);
  }
  ListBox mp3_lst{"mp3_lst", true}, new_lst{"new_lst"};
};

TEST_F(StatisticsTest, MeasuresEveryFileAndShowsTheDeviations) {
  Open([&](Form& form) {
    const auto text = [&](const char* name) { return Find<Label>(form.layout, name).Text(); };
    EXPECT_EQ(text("maximum_value_lbl"), L"5.0 s");
    EXPECT_EQ(text("global_value_lbl"), L"2.8 s");
    EXPECT_EQ(text("quadratic_value_lbl"), L"3.6 s");
    EXPECT_EQ(text("fakes_value_lbl"), L"1");
    EXPECT_EQ(text("verdict_lbl"), TestText(message::kVerdictPartlyFits));
    const auto& places = Find<ListBox>(form.layout, "places_lst");
    EXPECT_EQ(places.cell(0, 5), L"+0.5 s");
    EXPECT_EQ(places.cell(1, 5), TestText(message::kUnmeasured));
    EXPECT_EQ(places.cell(2, 5), TestText(message::kWithoutFile));
    EXPECT_EQ(places.cell(4, 1) + places.cell(4, 2) + places.cell(4, 3) + places.cell(4, 4), L"b.mp30:06Title0:01");
    Find<Button>(form.layout, "ok_btn").Click();
    EXPECT_TRUE(form.Closing());
  });
  std::vector<int> times;
  for (int i = 0; i < mp3_lst.Count(); ++i) times.push_back(mp3_lst.Value(i));
  EXPECT_EQ(times, (std::vector<int>{1500, 0, 0, 0, 6000}));
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StatisticsTest, StopsMeasuringWhenItIsClosed) {
  Form* window = nullptr;
  events.eachTime = [&] { window->RequestClose(); };
  struct Catch : FakePrompts {
    explicit Catch(Form*& form) : opened(form) {}
    void ShowModal(Form& dialog) override {
      opened = &dialog;
      dialog.shown();
      EXPECT_TRUE(dialog.Closing());
    }
    Form*& opened;
  } closing(window);
  Context other{Ports{files, registry, codePage, events, clock, shell, closing, socket, ftp}, L"C:\\Tagrix"};
  ShowStatistics(other, L"C:\\m", mp3_lst, new_lst);
  EXPECT_EQ(mp3_lst.Value(0), 1500);
  EXPECT_EQ(mp3_lst.Value(4), 0);
}

TEST_F(StatisticsTest, OpensWithoutADiscAndWithoutFiles) {
  new_lst.Clear();
  const auto nothing = [](Form& form) {
    EXPECT_EQ(Find<Label>(form.layout, "verdict_lbl").Text(), TestText(message::kVerdictNothing));
    EXPECT_EQ(Find<Label>(form.layout, "maximum_value_lbl").Text(), L"\u2013");
  };
  Open(nothing);
  mp3_lst.Clear();
  Open(nothing);
}

}  // namespace
}  // namespace tagrix
