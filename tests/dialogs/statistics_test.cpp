#include "dialogs/statistics.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "core/session.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

// Tells which window is open, for those who close it while it measures.
struct ShowingPrompts : FakePrompts {
  void ShowModal(Form& dialog) override {
    open = &dialog;
    dialog.shown();
    EXPECT_TRUE(dialog.Closing());
  }
  Form* open = nullptr;
};

struct StatisticsTest : testing::Test, TestContext {
  StatisticsTest() {
    files.Put(L"C:\\m\\a.mp3", SmallMp3(1500));
    files.Put(L"C:\\m\\noise.mp3", std::string(4000, 'x'));
    files.Put(L"C:\\m\\b.mp3", SmallMp3(6000));
    for (const wchar_t* name : {L"a.mp3", L"noise.mp3", kFakeTrack, L"gone.mp3", L"b.mp3"}) mp3_lst.Add(name, 7);
    for (int i = 0; i < 5; ++i) new_lst.Add(L"Title", 75);
  }
  ListBox mp3_lst{"mp3_lst", true}, new_lst{"new_lst"};
};

TEST_F(StatisticsTest, MeasuresEveryFileAndShowsTheDeviations) {
  const auto text = [](Form& form, const char* name) { return Find<Label>(form.layout, name).Text(); };
  prompts.dialogs.emplace_back([&](Form& form) {
    EXPECT_EQ(text(form, "maximum_value_lbl") + text(form, "global_value_lbl") + text(form, "quadratic_value_lbl"),
              L"5.0 s2.8 s3.6 s");
    EXPECT_EQ(text(form, "fakes_value_lbl") + text(form, "verdict_lbl"), L"1" + TestText(message::kVerdictPartlyFits));
    const auto& places = Find<ListBox>(form.layout, "places_lst");
    EXPECT_EQ(places.cell(0, 5) + places.cell(1, 5) + places.cell(2, 5),
              L"+0.5 s" + TestText(message::kUnmeasured) + TestText(message::kWithoutFile));
    EXPECT_EQ(places.cell(4, 1) + places.cell(4, 2) + places.cell(4, 3) + places.cell(4, 4), L"b.mp30:06Title0:01");
    PressOk(form);
    EXPECT_TRUE(form.Closing());
  });
  ShowStatistics(context, L"C:\\m", mp3_lst, new_lst);
  const int times[] = {1500, 0, 0, 0, 6000};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(mp3_lst.Value(i), times[i]) << i;
  EXPECT_TRUE(prompts.messages.empty());

  new_lst.Clear();
  prompts.dialogs.emplace_back([&](Form& form) {
    EXPECT_EQ(text(form, "verdict_lbl") + text(form, "maximum_value_lbl"),
              TestText(message::kVerdictNothing) + L"\u2013");
  });
  ShowStatistics(context, L"C:\\m", mp3_lst, new_lst);
}

TEST_F(StatisticsTest, StopsMeasuringWhenItIsClosed) {
  ShowingPrompts showing;
  events.eachTime = [&] { showing.open->RequestClose(); };
  Context other{Ports{files, registry, codePage, events, clock, shell, showing, socket, ftp}, L"C:\\Tagrix"};
  ShowStatistics(other, L"C:\\m", mp3_lst, new_lst);
  EXPECT_EQ(mp3_lst.Value(0), 1500);
  EXPECT_EQ(mp3_lst.Value(4), 0);
}

}  // namespace
}  // namespace tagrix
