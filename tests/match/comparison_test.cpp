#include "match/comparison.h"

#include <gtest/gtest.h>

#include <sstream>

#include "dialogs/fixtures.h"
#include "match/sort_files.h"
#include "views/comparison_chart.h"
#include "views/comparison_table.h"

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

TEST(SortFiles, GivesEachTrackTheClosestFileLeft) {
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
  for (const auto& expected : cases) EXPECT_EQ(SortFiles(expected.files, expected.tracks), expected.order);
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

TEST(Diagnose, SaysWhatTheDifferencesMean) {
  const std::string four = " 999/999 999/999 999/999 999/999";
  const struct {
    std::string places;
    Verdict verdict;
    int place = 0;
  } cases[] = {
      {"-/100 50/-", Verdict::Nothing},
      {"100/98 200/198", Verdict::Fits},
      {"100/98 0/200", Verdict::FitsAsMeasured},
      {"100/98 0/200 -/150", Verdict::TracksWithoutFile},
      {"100/98 150/-", Verdict::FilesWithoutTrack},
      {"150/100 100/150 250/200 200/250 999/300", Verdict::OtherOrder},  // and one in five another recording
      {"100/100 300/150" + four, Verdict::PartlyFits},                   // most fit whatever the order
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

TEST(ComparisonChart, DrawsABarForEveryPlaceThatIsMeasuredAndStaysWithinItsRoom) {
  ComparisonChart chart{
      .places = PlacesOf("120/100 99/100 0/1 -/1 1/- 1/1"), .measured = 5, .selected = 4, .legend = {}};
  for (const Size size : {Size{0, 0}, Size{60, 30}, Size{80, 400}, Size{700, 240}}) {
    SketchCanvas canvas(size);
    DrawComparison(canvas, chart);
    for (const Point end : canvas.ends) EXPECT_TRUE(end.x >= 0 && end.y >= 0 && end.y <= size.height);
    if (size.width < 700) continue;
    const std::vector<Rect> wrong = canvas.Filled(Ink::Error), good = canvas.Filled(Ink::Good);
    ASSERT_EQ(wrong.size(), 2U);       // the first is the legend's
    ASSERT_EQ(good.size(), 2U);        // the last place is not measured yet
    EXPECT_LT(wrong[1].y, good[1].y);  // what is too long stands above
    for (const auto& [ink, area] : canvas.fills) EXPECT_TRUE(area.width > 0 && area.height > 0);
    EXPECT_NE(std::find(canvas.texts.begin(), canvas.texts.end(), L"+20 s"), canvas.texts.end());
  }
  SketchCanvas crowded({700, 240});
  chart.places.resize(2000, chart.places.front());
  chart.measured = 2000;
  DrawComparison(crowded, chart);
  EXPECT_EQ(crowded.Filled(Ink::Error).size(), 1996U);
  for (const auto& [ink, area] : crowded.fills) EXPECT_TRUE(area.width > 0 && area.x + area.width <= 700);
  for (const auto& [difference, limit] : {std::pair(4e3, 4e3), {4001., 10e3}, {3600001., 7200e3}}) {
    EXPECT_EQ(AxisLimit(difference), limit);
  }
}

}  // namespace
}  // namespace tagrix
