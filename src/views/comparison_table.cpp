#include "views/comparison_table.h"

#include <cmath>

#include "base/text.h"
#include "base/times.h"
#include "core/messages.h"

namespace tagrix {
namespace {

enum Column { kNumber, kFile, kFileTime, kTrack, kTrackTime, kDifference };

std::wstring DifferenceCell(const Place& place, Context& context) {
  switch (FitOf(place)) {
    case Fit::NoFile:
      return context.Text(message::kWithoutFile);
    case Fit::NoTrack:
      return context.Text(message::kWithoutTrack);
    case Fit::Unmeasured:
      return place.file == 0 ? context.Text(message::kUnmeasured) : std::wstring();
    default:
      return DifferenceText(Difference(place), context.codePage.DecimalSeparator());
  }
}

RowMark MarkOf(const Place& place) {
  switch (FitOf(place)) {
    case Fit::Doubtful:
      return RowMark::Changed;
    case Fit::Wrong:
      return RowMark::Wrong;
    case Fit::NoFile:
      return RowMark::Dim;
    default:
      return RowMark::None;
  }
}

}  // namespace

void ShowComparison(ListBox& table, Context& context, const std::function<ComparedRow(int i)>& row) {
  const std::wstring time = context.Text(message::kTimeColumn);
  table.cell = [&context, row](int i, int column) -> std::wstring {
    const ComparedRow compared = row(i);
    switch (column) {
      case kNumber:
        return std::to_wstring(i + 1);
      case kFile:
        return compared.file;
      case kFileTime:
        return MinutesAndSeconds(compared.place.file);
      case kTrack:
        return compared.track;
      case kTrackTime:
        return MinutesAndSeconds(compared.place.track);
      default:
        return DifferenceCell(compared.place, context);
    }
  };
  table.mark = [row](int i) { return MarkOf(row(i).place); };
  table.SetColumns({{L"#", 32, true},
                    {context.Text(message::kFileColumn), 0},
                    {time, 56, true},
                    {context.Text(message::kTrackColumn), 0},
                    {time, 56, true},
                    {context.Text(message::kDifferenceColumn), 90, true}});
}

std::wstring DeviationText(double milliseconds, wchar_t decimalSeparator) {
  if (std::abs(milliseconds) < 59950) return Decimals(std::abs(milliseconds) / 1000, 1, decimalSeparator) + L" s";
  return MinutesAndSeconds(std::abs(milliseconds));
}

std::wstring DifferenceText(double milliseconds, wchar_t decimalSeparator) {
  const wchar_t* sign = std::abs(milliseconds) < 50 ? L"\u00B1" : milliseconds < 0 ? L"\u2212" : L"+";
  return sign + DeviationText(milliseconds, decimalSeparator);
}

}  // namespace tagrix
