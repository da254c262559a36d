#include "dialogs/statistics.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

struct StatisticsTest : testing::Test, TestContext {
  StatisticsTest() {
    session.folder = L"C:\\m";
    files.Put(L"C:\\m\\a.mp3", SmallMp3(1512));
    files.Put(L"C:\\m\\noise.mp3", std::string(4000, 'x'));
    files.Put(L"C:\\m\\b.mp3", SmallMp3(6000));
    session.files = {{L"a.mp3", 7}, {L"noise.mp3", 7}, AlbumFile::Fake(), {L"gone.mp3", 7}, {L"b.mp3", 7}};
    session.disc.tracks.assign(5, {L"Title", 75});
  }
  AlbumSession session;
};

TEST_F(StatisticsTest, MeasuresEveryFileAndShowsTheDeviations) {
  const auto text = [](Form& form, const char* name) { return Find<Label>(form.layout, name).Text(); };
  prompts.dialogs.emplace_back([&](Form& form) {
    EXPECT_EQ(text(form, "maximum_value_lbl"), L"5.0 s");
    EXPECT_EQ(text(form, "global_value_lbl"), L"2.8 s");
    EXPECT_EQ(text(form, "quadratic_value_lbl"), L"3.6 s");
    EXPECT_EQ(text(form, "fakes_value_lbl"), L"1");
    EXPECT_EQ(text(form, "verdict_lbl"), TestText(message::kVerdictPartlyFits));
    const auto& places = Find<ListBox>(form.layout, "places_lst");
    EXPECT_EQ(places.cell(0, 5), L"+0.5 s");
    EXPECT_EQ(places.cell(1, 5), TestText(message::kUnmeasured));
    EXPECT_EQ(places.cell(2, 5), TestText(message::kWithoutFile));
    const wchar_t* last[] = {L"5", L"b.mp3", L"0:06", L"Title", L"0:01", L"\u25B2 +5.0 s <292>"};
    for (int column = 0; column < 6; ++column) EXPECT_EQ(places.cell(4, column), last[column]);
    PressOk(form);
  });
  ShowStatistics(context, session);
  const int times[] = {1512, 0, 0, 0, 6000};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(session.files[i].milliseconds, times[i]) << i;
  EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StatisticsTest, StopsMeasuringWhenItIsClosed) {
  events.eachTime = [&] { prompts.open->RequestClose(); };
  prompts.dialogs.emplace_back([](Form& form) { EXPECT_TRUE(form.Closing()); });
  ShowStatistics(context, session);
  EXPECT_EQ(session.files[0].milliseconds, 1512);
  EXPECT_EQ(session.files[4].milliseconds, 0);
}

}  // namespace
}  // namespace tagrix
