#include "dialogs/comparison.h"

#include <gtest/gtest.h>

#include <sstream>

#include "dialogs/comparison_chart.h"
#include "dialogs/comparison_table.h"
#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

// "103/100 0/5 -/7 9/-": files over tracks in seconds, "-" where there is none.
std::vector<Place> PlacesOf(const std::string& text) {
  const auto milliseconds = [](const std::string& seconds) { return std::atof(seconds.c_str()) * 1000; };
  std::istringstream in(text);
  std::vector<Place> places;
  for (std::string file, track; std::getline(in, file, '/') && in >> track; in >> std::ws) {
    places.push_back({file != "-", track != "-", milliseconds(file), milliseconds(track)});
  }
  return places;
}

TEST(MatchFiles, GivesEachTrackTheClosestFileLeft) {
  const struct {
    std::vector<std::int32_t> files, tracks;
    std::vector<int> order;
  } cases[] = {
      {{199000, 181000}, {13500, 15000}, {1, 0}},
      {{101000, 99000}, {7500, 7650}, {0, 1}},             // equally close: the higher one, though crossed were better
      {{0, 100000, 60000}, {7500, 4500, 300}, {1, 2, 0}},  // unmeasured: for the shortest track that is left
      {{10, 20, 30}, {2}, {2, 1, 0}},                      // exchanged, not moved
      {{40, 14}, {2}, {0, 1}},                             // 13.33 and 12.67 ms off: equal once they are rounded
      {{40, 13}, {2}, {0, 1}},                             // 13.33 and 13.67: not equal
      {{2147483647, 0}, {2147483647}, {0, 1}},             // deviations beyond 32 bits count as equal
  };
  for (const auto& expected : cases) EXPECT_EQ(MatchFiles(expected.files, expected.tracks), expected.order);
}

TEST(Comparison, TellsHowAFileFits) {
  for (const auto& [place, fit] : {std::pair("100/103", Fit::Good),
                                   {"103.001/100", Fit::Doubtful},
                                   {"90/100", Fit::Doubtful},
                                   {"89.999/100", Fit::Wrong},
                                   {"0/100", Fit::Unmeasured},
                                   {"100/0", Fit::Unmeasured},
                                   {"-/100", Fit::NoFile},
                                   {"100/-", Fit::NoTrack}}) {
    EXPECT_EQ(FitOf(PlacesOf(place).at(0)), fit) << place;
  }
}

TEST(Comparison, ComputesDeviationsOverTheCompletePlaces) {
  ListBox files{"files"}, tracks{"tracks"};
  for (const int time : {103000, 96000, 0}) files.Add(L"a.mp3", time);
  files.Add(L"**Fake Track**", 77);
  for (const int frames : {7500, 7500, 375, 525, 75}) tracks.Add(L"A", frames);
  const std::vector<Place> places = Places(files, tracks);
  ASSERT_EQ(places.size(), 5U);
  EXPECT_NEAR(Difference(places[0]), 3000, 1e-9);
  EXPECT_TRUE(places[3].hasTrack && !places[3].hasFile && places[3].file == 0);
  EXPECT_TRUE(places[4].hasTrack && !places[4].hasFile);
  const Deviations of = DeviationsOf(places);
  EXPECT_EQ(of.compared, 2);
  EXPECT_NEAR(of.maximum, 4000, 1e-9);
  EXPECT_NEAR(of.mean, 3500, 1e-9);
  EXPECT_NEAR(of.quadratic, 3535.53, 0.01);
}

TEST(Diagnose, SaysWhatTheDifferencesMean) {
  const std::string four = " 999/999 999/999 999/999 999/999";
  const struct {
    std::string places;
    Verdict verdict;
    int place = 0;
  } cases[] = {
      {"-/100 50/-", Verdict::Nothing},
      {"100/98 0/200 -/150", Verdict::Fits},
      {"150/100 100/150 250/200 200/250 999/300", Verdict::OtherOrder},  // and one in five another recording
      {"150/100 100/150" + four + four, Verdict::OtherOrder},
      {"100/100 300/150" + four, Verdict::PartlyFits},  // most fit whatever the order
      {"100/100 300/200", Verdict::PartlyFits},
      {"100/100 200/150 250/200 -/250", Verdict::FileMissing, 1},
      {"100/100 300/150 150/200 200/-", Verdict::FileTooMany, 1},
      {"100/150 100/200 100/250", Verdict::WrongDisc},
  };
  for (const auto& expected : cases) {
    const Diagnosis diagnosis = Diagnose(PlacesOf(expected.places));
    EXPECT_EQ(diagnosis.verdict, expected.verdict) << expected.places;
    EXPECT_EQ(diagnosis.place, expected.place) << expected.places;
  }
}

TEST(ComparisonTable, WritesDifferences) {
  for (const auto& [milliseconds, text] :
       {std::pair(3440, L"+3,4 s"), {-49, L"\u00B10,0 s"}, {-59940, L"\u221259,9 s"}, {-59960, L"\u22121:00"}}) {
    EXPECT_EQ(DifferenceText(milliseconds, L','), text);
  }
}

TEST(ComparisonChart, DrawsABarForEveryPlaceThatIsMeasured) {
  for (const int pairs : {1, 7, 1000}) {
    SketchCanvas canvas({700, 240});
    ComparisonChart chart;
    chart.measured = 2 * pairs;
    for (int i = 0; i <= pairs; ++i) {  // the last pair is not measured yet
      for (const Place& place : PlacesOf("120/100 99/100")) chart.places.push_back(place);
    }
    DrawComparison(canvas, chart);
    const std::vector<Rect> wrong = canvas.Filled(Ink::Error), good = canvas.Filled(Ink::Good);
    EXPECT_EQ(std::ssize(wrong), 1 + pairs);  // the first is the legend's
    EXPECT_EQ(std::ssize(good), 1 + pairs);
    EXPECT_LT(wrong[1].y, good[1].y);  // what is too long stands above
    for (const auto& [ink, area] : canvas.fills) {
      EXPECT_TRUE(area.x >= 0 && area.x + area.width <= 700 && area.y + area.height <= 240);
      EXPECT_TRUE(area.width > 0 && area.height > 0);
    }
    EXPECT_NE(std::find(canvas.texts.begin(), canvas.texts.end(), L"+20 s"), canvas.texts.end());
  }
}

TEST(ComparisonChart, StaysWithinItsRoomAndScalesInRoundTimes) {
  const ComparisonChart chart{
      .places = PlacesOf("0/1 -/1 1/- 9000000/1 1/1"), .measured = 5, .selected = 4, .legend = {}};
  for (const Size size : {Size{0, 0}, Size{60, 30}, Size{80, 400}, Size{700, 240}}) {
    SketchCanvas canvas(size);
    DrawComparison(canvas, chart);
    for (const Point end : canvas.ends) {
      EXPECT_TRUE(end.x >= 0 && end.x <= 700 && end.y >= 0 && end.y <= size.height) << end.x << " " << end.y;
    }
  }
  for (const auto& [difference, limit] : {std::pair(4e3, 4e3), {4001., 10e3}, {3600001., 7200e3}}) {
    EXPECT_EQ(AxisLimit(difference), limit);
  }
}

}  // namespace
}  // namespace tagrix
