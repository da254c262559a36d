#include "views/comparison_table.h"

#include <cmath>
#include <utility>
#include <vector>

#include "base/text.h"
#include "base/times.h"
#include "core/messages.h"

namespace tagrix {
namespace {

enum Column { kNumber, kFile, kFileTime, kTrack, kTrackTime, kDifference, kNewName };

std::wstring DifferenceCell(const Place& place, Context& context) {
  std::wstring difference = DifferenceText(Difference(place), context.codePage.DecimalSeparator());
  switch (FitOf(place)) {
    case Fit::NoFile:
      return context.Text(message::kWithoutFile);
    case Fit::NoTrack:
      return context.Text(message::kWithoutTrack);
    case Fit::Unmeasured:
      return place.file == 0 ? context.Text(message::kUnmeasured) : std::wstring();
    case Fit::Doubtful:
      return kDoubtSign + difference + L" " + context.Text(message::kDoubtful);
    case Fit::Wrong:
      return kWrongSign + difference + L" " + context.Text(message::kWrong);
    case Fit::Good:
      break;
  }
  return difference;
}

RowMark MarkOf(const Place& place) {
  switch (FitOf(place)) {
    case Fit::Doubtful:
    case Fit::NoTrack:
      return RowMark::Doubtful;
    case Fit::Wrong:
      return RowMark::Wrong;
    case Fit::NoFile:
      return RowMark::Dim;
    default:
      return RowMark::None;
  }
}

}  // namespace

void ShowComparison(ListBox& table, Context& context, const std::function<ComparedRow(int i)>& row,
                    const std::function<std::wstring(int i)>& newName) {
  table.cell = [&context, row, newName](int i, int column) -> std::wstring {
    if (column == kNewName) return newName(i);
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
  SetComparisonColumns(table, context, newName != nullptr);
}

void SetComparisonColumns(ListBox& table, Context& context, bool withNewName) {
  const std::wstring time = context.Text(message::kTimeColumn);
  std::vector<ListColumn> columns{{L"#", 32},       {context.Text(message::kFileColumn), 0},
                                  {time, 48, true}, {context.Text(message::kTrackColumn), 0},
                                  {time, 48, true}, {context.Text(message::kDifferenceColumn), 124, true}};
  if (withNewName) columns.push_back({context.Text(message::kNameAfter), 0});
  table.SetColumns(std::move(columns));
}

std::wstring VerdictText(Context& context, const Diagnosis& diagnosis) {
  const auto atPlace = [&](int text) {
    return FillMessage(context.Text(text), {std::to_wstring(diagnosis.place + 1)});
  };
  switch (diagnosis.verdict) {
    case Verdict::Fits:
      return context.Text(message::kVerdictFits);
    case Verdict::TracksWithoutFile:
      return context.Text(message::kTracksWithoutFile);
    case Verdict::FilesWithoutTrack:
      return context.Text(message::kFilesWithoutTrack);
    case Verdict::FitsAsMeasured:
      return context.Text(message::kVerdictFitsAsMeasured);
    case Verdict::OtherOrder:
      return context.Text(message::kVerdictOtherOrder);
    case Verdict::FileMissing:
      return atPlace(message::kVerdictFileMissing);
    case Verdict::FileTooMany:
      return atPlace(message::kVerdictFileTooMany);
    case Verdict::PartlyFits:
      return context.Text(message::kVerdictPartlyFits);
    case Verdict::WrongDisc:
      return context.Text(message::kVerdictWrongDisc);
    case Verdict::Nothing:
      break;
  }
  return context.Text(message::kVerdictNothing);
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
