#include "dialogs/comparison_table.h"

#include <cmath>

#include "core/messages.h"
#include "core/session.h"
#include "core/text.h"
#include "dialogs/comparison.h"

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

void ShowComparison(ListBox& table, Context& context, const ListBox& files, const ListBox& tracks) {
  const std::wstring time = context.Text(message::kTimeColumn);
  table.cell = [&](int row, int column) -> std::wstring {
    const Place place = PlaceAt(files, tracks, row);
    switch (column) {
      case kNumber:
        return std::to_wstring(row + 1);
      case kFile:
        return row < files.Count() ? files.ItemText(row) : std::wstring();
      case kFileTime:
        return MinutesAndSeconds(place.file);
      case kTrack:
        return row < tracks.Count() ? tracks.ItemText(row) : std::wstring();
      case kTrackTime:
        return MinutesAndSeconds(place.track);
      default:
        return DifferenceCell(place, context);
    }
  };
  table.mark = [&](int row) { return MarkOf(PlaceAt(files, tracks, row)); };
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
