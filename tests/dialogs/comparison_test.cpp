#include "dialogs/comparison.h"

#include <gtest/gtest.h>

#include "dialogs/comparison_chart.h"
#include "dialogs/comparison_table.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

using Ints = std::vector<int>;

TEST(MatchFiles, GivesEachTrackTheClosestFileLeft) {
  const struct {
    std::vector<std::int32_t> files, tracks;
    Ints order;
  } cases[] = {
      {{199000, 181000}, {13500, 15000}, {1, 0}},
      {{101000, 99000}, {7500, 7650}, {0, 1}},             // equally close: the higher one, though crossed were better
      {{0, 100000, 60000}, {7500, 4500, 300}, {1, 2, 0}},  // unmeasured: for the shortest track that is left
      {{10, 20, 30}, {2}, {2, 1, 0}},                      // exchanged, not moved
      {{40, 14}, {2}, {0, 1}},                             // 13.33 and 12.67 ms off: equal once they are rounded
      {{2147483647, 0}, {2147483647}, {0, 1}},             // deviations beyond 32 bits count as equal
      {{}, {}, {}},
  };
  for (const auto& expected : cases) EXPECT_EQ(MatchFiles(expected.files, expected.tracks), expected.order);
}

Place Both(double file, double track) { return {true, true, file, track}; }
Place NoFileFor(double track) { return {false, true, 0, track}; }
Place NoTrackFor(double file) { return {true, false, file, 0}; }

TEST(Comparison, TellsHowAFileFits) {
  const std::pair<Place, Fit> cases[] = {
      {Both(100000, 103000), Fit::Good}, {Both(103001, 100000), Fit::Doubtful}, {Both(90000, 100000), Fit::Doubtful},
      {Both(89999, 100000), Fit::Wrong}, {Both(0, 100000), Fit::Unmeasured},    {Both(100000, 0), Fit::Unmeasured},
      {NoFileFor(100000), Fit::NoFile},  {NoTrackFor(100000), Fit::NoTrack},
  };
  for (const auto& [place, fit] : cases) EXPECT_EQ(FitOf(place), fit) << place.file << " " << place.track;
}

TEST(Comparison, ComputesDeviationsOverTheCompletePlaces) {
  const Deviations of =
      DeviationsOf({Both(103000, 100000), Both(96000, 100000), Both(0, 5000), NoFileFor(7000), NoTrackFor(9000)});
  EXPECT_EQ(of.compared, 2);
  EXPECT_EQ(of.maximum, 4000);
  EXPECT_EQ(of.mean, 3500);
  EXPECT_NEAR(of.quadratic, 3535.53, 0.01);
  EXPECT_EQ(DeviationsOf({NoFileFor(7000)}).quadratic, 0);
}

TEST(Comparison, ReadsTheListsPlaceByPlace) {
  ListBox files{"files"}, tracks{"tracks"};
  files.Add(L"a.mp3", 2000);
  files.Add(L"**Fake Track**", 77);
  tracks.Add(L"A", 75);
  tracks.Add(L"B", 150);
  tracks.Add(L"C", 0);
  const std::vector<Place> places = Places(files, tracks);
  ASSERT_EQ(places.size(), 3U);
  EXPECT_EQ(Difference(places[0]), 1000);
  EXPECT_FALSE(places[1].hasFile);
  EXPECT_EQ(places[1].file, 0);
  EXPECT_NEAR(places[1].track, 2000, 1e-9);
  EXPECT_TRUE(places[2].hasTrack && !places[2].hasFile);
}

TEST(Diagnose, SaysWhatTheDifferencesMean) {
  const double t[] = {100e3, 150e3, 200e3, 250e3, 300e3};
  const Place same = Both(1e6, 1e6);
  const struct {
    const char* name;
    std::vector<Place> places;
    Verdict verdict;
    int place;
  } cases[] = {
      {"no disc", {NoTrackFor(t[0]), NoTrackFor(t[1])}, Verdict::Nothing, 0},
      {"all fit", {Both(t[0], t[0]), Both(t[1] + 2000, t[1]), Both(0, t[2])}, Verdict::Fits, 0},
      {"all that are there fit", {Both(t[0], t[0]), NoFileFor(t[1])}, Verdict::Fits, 0},
      {"mixed up, and one in five another recording",
       {Both(t[1], t[0]), Both(t[0], t[1]), Both(t[3], t[2]), Both(t[2], t[3]), Both(1e6, t[4])},
       Verdict::OtherOrder,
       0},
      {"two of many mixed up",
       {Both(t[1], t[0]), Both(t[0], t[1]), same, same, same, same, same, same, same, same},
       Verdict::OtherOrder,
       0},
      {"most fit whatever the order",
       {Both(t[4], t[1]), Both(t[0], t[0]), Both(t[2], t[2]), same, same, same},
       Verdict::PartlyFits,
       0},
      {"second missing, a fake at the end",
       {Both(t[0], t[0]), Both(t[2], t[1]), Both(t[3], t[2]), NoFileFor(t[3])},
       Verdict::FileMissing,
       1},
      {"second too many",
       {Both(t[0], t[0]), Both(t[4], t[1]), Both(t[1], t[2]), NoTrackFor(t[2])},
       Verdict::FileTooMany,
       1},
      {"one differs", {Both(t[0], t[0]), Both(t[1], t[1]), Both(t[4], t[2])}, Verdict::PartlyFits, 0},
      {"another disc", {Both(t[0], t[1]), Both(t[0], t[2]), Both(t[0], t[3])}, Verdict::WrongDisc, 0},
  };
  for (const auto& expected : cases) {
    const Diagnosis diagnosis = Diagnose(expected.places);
    EXPECT_EQ(diagnosis.verdict, expected.verdict) << expected.name;
    EXPECT_EQ(diagnosis.place, expected.place) << expected.name;
  }
}

TEST(ComparisonTable, WritesDifferences) {
  EXPECT_EQ(DifferenceText(3440, L','), L"+3,4 s");
  EXPECT_EQ(DifferenceText(-49, L'.'), L"\u00B10.0 s");
  EXPECT_EQ(DifferenceText(-59940, L'.'), L"\u221259.9 s");
  EXPECT_EQ(DifferenceText(-59960, L'.'), L"\u22121:00");
  EXPECT_EQ(DeviationText(65000, L'.'), L"1:05");
}

TEST(ComparisonChart, DrawsABarForEveryPlace) {
  for (const int count : {1, 13, 2000}) {
    SketchCanvas canvas({700, 240});
    ComparisonChart chart;
    chart.measured = count;
    for (int i = 0; i < count; ++i) chart.places.push_back(Both(100e3 + (i % 2 == 0 ? 20e3 : -1e3), 100e3));
    DrawComparison(canvas, chart);
    const std::vector<Rect> wrong = canvas.Filled(Ink::Error), good = canvas.Filled(Ink::Good);
    EXPECT_EQ(std::ssize(wrong), 1 + (count + 1) / 2);  // the first is the legend's
    EXPECT_EQ(std::ssize(good), 1 + count / 2);
    for (const auto& [ink, area] : canvas.fills) {
      EXPECT_TRUE(area.x >= 0 && area.x + area.width <= 700 && area.y + area.height <= 240);
      EXPECT_TRUE(area.width > 0 && area.height > 0);
    }
    EXPECT_LT(wrong[1].y, count > 1 ? good[1].y : 240);  // what is too long stands above
    EXPECT_NE(std::find(canvas.texts.begin(), canvas.texts.end(), L"+20 s"), canvas.texts.end());
  }
}

TEST(ComparisonChart, StaysWithinItsRoomAndSkipsWhatIsNotMeasuredYet) {
  const ComparisonChart chart{
      .places = {Both(0, 1000), NoFileFor(1000), NoTrackFor(1000), Both(9e9, 1000), Both(1000, 1000)},
      .measured = 4,
      .selected = 4,
      .legend = {L"?", L"-", L"+"}};
  for (const Size size : {Size{700, 240}, Size{0, 0}, Size{60, 30}, Size{80, 400}}) {
    SketchCanvas canvas(size);
    DrawComparison(canvas, chart);
    if (size.width < 700) continue;
    EXPECT_EQ(canvas.Filled(Ink::Error).size(), 2U);
    EXPECT_EQ(canvas.Filled(Ink::Good).size(), 1U);
    for (const Point end : canvas.ends) {
      EXPECT_TRUE(end.x >= 0 && end.x <= 700 && end.y >= 0 && end.y <= 240) << end.x << " " << end.y;
    }
  }
}

TEST(ComparisonChart, ScalesInRoundTimes) {
  for (const auto& [difference, limit] : {std::pair(0., 4e3), {4e3, 4e3}, {4001, 10e3}, {3600001, 7200e3}}) {
    EXPECT_EQ(AxisLimit(difference), limit);
  }
}

}  // namespace
}  // namespace tagrix
