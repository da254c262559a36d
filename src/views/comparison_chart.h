// The chart of an album's differences: a bar per place, up when the file is longer than its track.
#ifndef TAGRIX_VIEWS_COMPARISON_CHART_H
#define TAGRIX_VIEWS_COMPARISON_CHART_H

#include <array>
#include <string>
#include <vector>

#include "forms/picture.h"
#include "match/comparison.h"

namespace tagrix {

struct ComparisonChart {
  std::vector<Place> places;
  int measured = 0;                    // places from here on are still blank
  int selected = -1;                   // a place to point out, -1 none
  std::array<std::wstring, 3> legend;  // not measured, no file, no track
};

// Bars in the colours of their fit, against an axis in steps of round times with a zero line. A file that can't be
// measured is hatched over the whole height, a place without file or track is an empty box.
void DrawComparison(Canvas& canvas, const ComparisonChart& chart);

// The place whose column is at a point of a canvas of that size; -1 where there is none.
int PlaceAtPoint(const ComparisonChart& chart, Size size, Point point);

// The axis that holds a difference: the least of some round times that is not below it, in milliseconds.
double AxisLimit(double difference);

}  // namespace tagrix

#endif
