#include "tools/burn/capacity.h"

#include <algorithm>
#include <cmath>

namespace tagrix {
namespace {

constexpr double kMinute = 60'000;
constexpr int kScaleHeight = 18;
constexpr int kLabelWidth = 44;
constexpr int kTickWidth = 4;

// Minutes between two labels, so that they have room.
int LabelStep(double minutes, int width) {
  int step = 10;
  while (minutes / step * kLabelWidth > width) step *= 2;
  return step;
}

void PaintScale(Canvas& canvas, Rect bar, double span) {
  const auto mark = [&](int minute) {
    const int x = bar.x + static_cast<int>(minute * kMinute / span * (bar.width - 1));
    const int bottom = bar.y + bar.height;
    canvas.Line({x, bottom}, {x, bottom + kTickWidth}, Ink::Text);
    const Rect area{x - kLabelWidth / 2, bottom + kTickWidth, kLabelWidth, kScaleHeight - kTickWidth};
    canvas.Text(area, std::to_wstring(minute), TextPlace::Centre, Ink::Text);
  };
  const int capacity = static_cast<int>(kCdCapacity / kMinute);
  const int step = LabelStep(span / kMinute, bar.width);
  mark(capacity);
  for (int minute = 0; minute * kMinute <= span; minute += step) {
    if (std::abs(minute - capacity) * 2 >= step) mark(minute);  // not into the label of the capacity
  }
}

}  // namespace

std::wstring BurnTime(double milliseconds) {
  const auto whole = std::llrint(milliseconds);
  const auto minutes = whole / 60000, seconds = (whole - minutes * 60000) / 1000;
  return std::to_wstring(minutes) + L"min " + std::to_wstring(seconds) + L"sec ";
}

void PaintCapacity(Canvas& canvas, double milliseconds) {
  const double span = std::max(kCdCapacity, milliseconds);
  const Size room = canvas.Extent();
  const Rect bar{kLabelWidth / 2, 0, std::max(0, room.width - kLabelWidth), std::max(0, room.height - kScaleHeight)};
  if (bar.width == 0) return;
  const auto width = [&](double time) { return static_cast<int>(std::lround(time / span * bar.width)); };
  const int fits = width(std::min(milliseconds, kCdCapacity)), all = width(milliseconds);

  canvas.Fill(bar, Ink::Frame);
  canvas.Fill({bar.x + 1, bar.y + 1, bar.width - 2, bar.height - 2}, Ink::Background);
  canvas.Fill({bar.x, bar.y, fits, bar.height}, Ink::Good);
  if (milliseconds > kCdCapacity) {
    const int beyond = std::max(1, all - fits);  // seen even when it is little
    canvas.Fill({bar.x + all - beyond, bar.y, beyond, bar.height}, Ink::Error);
  }
  PaintScale(canvas, bar, span);
}

}  // namespace tagrix
