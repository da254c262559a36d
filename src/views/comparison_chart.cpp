#include "views/comparison_chart.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/times.h"

namespace tagrix {
namespace {

constexpr int kGutter = 52;  // left of the plot, for the axis
constexpr int kFooter = 18;  // below it, for the numbers
constexpr int kLegend = 22;  // above it
constexpr int kRight = 8;
constexpr int kNumberWidth = 22;
constexpr int kHatch = 6;      // between the lines of a hatching
constexpr int kNarrowBar = 4;  // narrower bars touch each other

struct Plot {
  Rect room;
  int places;
  double limit;  // milliseconds at the upper edge

  int Zero() const { return room.y + room.height / 2; }
  int Y(double difference) const {
    return Zero() - static_cast<int>(std::lround(difference / limit * (room.height / 2.0)));
  }
  // The place's share of the width.
  Rect Column(int i) const {
    const int left = room.x + i * room.width / places, right = room.x + (i + 1) * room.width / places;
    return {left, room.y, std::max(1, right - left), room.height};
  }
  Rect Bar(int i) const {
    Rect column = Column(i);
    if (column.width < kNarrowBar) return column;
    // A lone track gets no bar as wide as the window.
    const int width = std::clamp(column.width * 3 / 4, 2, 60);
    column.x += (column.width - width) / 2;
    column.width = width;
    return column;
  }
};

Rect PlotRoom(Size size) {
  return {kGutter, kLegend + 8, size.width - kGutter - kRight, size.height - kLegend - 8 - kFooter};
}

Ink InkOf(Fit fit) {
  switch (fit) {
    case Fit::Good:
      return Ink::Good;
    case Fit::Doubtful:
    case Fit::NoTrack:
      return Ink::Warning;
    case Fit::Wrong:
      return Ink::Error;
    default:
      return Ink::DimText;
  }
}

void Outline(Canvas& canvas, Rect box, Ink ink) {
  const int right = box.x + box.width - 1, bottom = box.y + box.height - 1;
  canvas.Line({box.x, box.y}, {right, box.y}, ink);
  canvas.Line({right, box.y}, {right, bottom}, ink);
  canvas.Line({right, bottom}, {box.x, bottom}, ink);
  canvas.Line({box.x, bottom}, {box.x, box.y}, ink);
}

// Lines that fall to the left, from the box's upper or right edge to its left or lower one.
void Hatch(Canvas& canvas, Rect box, Ink ink) {
  const int width = box.width - 1, height = box.height - 1;
  for (int k = kHatch / 2; k < width + height; k += kHatch) {
    canvas.Line({box.x + std::min(k, width), box.y + std::max(0, k - width)},
                {box.x + std::max(0, k - height), box.y + std::min(k, height)}, ink);
  }
}

void DrawMark(Canvas& canvas, Rect box, Fit fit) {
  const Ink ink = InkOf(fit);
  if (fit == Fit::Unmeasured) {
    Hatch(canvas, box, ink);
  } else if (fit == Fit::NoFile || fit == Fit::NoTrack) {
    Outline(canvas, box, ink);
  } else {
    canvas.Fill(box, ink);
  }
}

std::wstring AxisText(double milliseconds) {
  const std::wstring sign = milliseconds < 0 ? L"\u2212" : L"+";
  const double size = std::abs(milliseconds);
  return sign + (size < 60000 ? std::to_wstring(std::lround(size / 1000)) + L" s" : MinutesAndSeconds(size));
}

void DrawAxis(Canvas& canvas, const Plot& plot) {
  for (const double share : {1.0, 0.5, -0.5, -1.0}) {
    const int y = plot.Y(share * plot.limit);
    canvas.Line({plot.room.x, y}, {plot.room.x + plot.room.width, y}, Ink::Frame);
    canvas.Text({0, y - 8, kGutter - 6, 16}, AxisText(share * plot.limit), TextPlace::Right, Ink::DimText);
  }
  canvas.Text({0, plot.Zero() - 8, kGutter - 6, 16}, L"0", TextPlace::Right, Ink::Text);
}

// Under every place, or every second, fifth, tenth, ... where there is no room for all.
void DrawNumbers(Canvas& canvas, const Plot& plot) {
  int step = 1;
  for (const int next : {2, 5, 10, 20, 50, 100, 1000, 10000}) {
    if (static_cast<long long>(step) * plot.room.width / plot.places >= kNumberWidth) break;
    step = next;
  }
  for (int i = 0; i < plot.places; ++i) {
    if (i > 0 && (i + 1) % step != 0) continue;
    const Rect column = plot.Column(i);
    const Rect under{column.x + column.width / 2 - 20, plot.room.y + plot.room.height + 2, 40, kFooter - 2};
    canvas.Text(under, std::to_wstring(i + 1), TextPlace::Centre, Ink::DimText);
  }
}

void DrawPlace(Canvas& canvas, const Plot& plot, const Place& place, int i) {
  const Fit fit = FitOf(place);
  Rect bar = plot.Bar(i);
  if (fit == Fit::Good || fit == Fit::Doubtful || fit == Fit::Wrong) {
    const int end = plot.Y(Difference(place));
    bar.y = std::min(end, plot.Zero() - 1);  // a perfect fit shows as a thin line
    bar.height = std::max(end, plot.Zero() + 1) - bar.y;
  }
  DrawMark(canvas, bar, fit);
}

// What the colours mean; the kinds that the album doesn't have are left out, but for the three of the bars.
void DrawLegend(Canvas& canvas, const ComparisonChart& chart) {
  const struct {
    Fit fit;
    std::wstring_view text;
    bool always;
  } kinds[] = {{Fit::Good, L"\u2264 3 s", true},      {Fit::Doubtful, L"\u2264 10 s", true},
               {Fit::Wrong, L"> 10 s", true},         {Fit::Unmeasured, chart.legend[0], false},
               {Fit::NoFile, chart.legend[1], false}, {Fit::NoTrack, chart.legend[2], false}};
  int x = kGutter;
  const auto measured = chart.places.begin() + std::min<std::ptrdiff_t>(chart.measured, std::ssize(chart.places));
  for (const auto& kind : kinds) {
    const auto isKind = [&](const Place& place) { return FitOf(place) == kind.fit; };
    if (!kind.always && std::none_of(chart.places.begin(), measured, isKind)) continue;
    DrawMark(canvas, {x, 4, 12, 12}, kind.fit);
    const int width = 16 + 7 * static_cast<int>(kind.text.size());
    canvas.Text({x + 18, 1, width, 18}, kind.text, TextPlace::Left, Ink::DimText);
    x += 18 + width;
  }
}

}  // namespace

double AxisLimit(double difference) {
  // Each has a half that is a round time, too.
  for (const double seconds : {4, 10, 20, 30, 60, 120, 300, 600, 1200, 3600}) {
    if (difference <= seconds * 1000) return seconds * 1000;
  }
  return std::ceil(difference / 7200000) * 7200000;
}

int PlaceAtPoint(const ComparisonChart& chart, Size size, Point point) {
  const Plot plot{PlotRoom(size), static_cast<int>(chart.places.size()), 1};
  for (int i = 0; i < plot.places; ++i) {
    const Rect column = plot.Column(i);
    if (point.x >= column.x && point.x < column.x + column.width) return i;
  }
  return -1;
}

void DrawComparison(Canvas& canvas, const ComparisonChart& chart) {
  const Size size = canvas.Extent();
  const Rect room = PlotRoom(size);
  const int count = static_cast<int>(chart.places.size());
  canvas.Fill({0, 0, size.width, size.height}, Ink::Background);
  if (count == 0 || room.width < 20 || room.height < 20) return;

  const Plot plot{room, count, AxisLimit(DeviationsOf(chart.places).maximum)};
  DrawLegend(canvas, chart);
  DrawAxis(canvas, plot);
  DrawNumbers(canvas, plot);
  for (int i = 0; i < std::min(count, chart.measured); ++i) {
    DrawPlace(canvas, plot, chart.places[static_cast<std::size_t>(i)], i);
  }
  canvas.Line({room.x, plot.Zero()}, {room.x + room.width, plot.Zero()}, Ink::Text);
  if (chart.selected >= 0 && chart.selected < count) Outline(canvas, plot.Column(chart.selected), Ink::Accent);
}

}  // namespace tagrix
