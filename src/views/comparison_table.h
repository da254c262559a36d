// A list that shows each file beside its track: number, file, time, track, time, difference.
#ifndef TAGRIX_VIEWS_COMPARISON_TABLE_H
#define TAGRIX_VIEWS_COMPARISON_TABLE_H

#include <functional>
#include <string>

#include "core/context.h"
#include "forms/lists.h"
#include "match/comparison.h"

namespace tagrix {

struct ComparedRow {
  std::wstring file, track;  // the name and the title; empty: none
  Place place;
};

// Gives `table` the columns; its row i shows what `row` says of place i.
void ShowComparison(ListBox& table, Context& context, const std::function<ComparedRow(int i)>& row);

// A difference with its sign: "+3.4 s", from a minute on "+1:05"; without a sign for deviations.
std::wstring DifferenceText(double milliseconds, wchar_t decimalSeparator);
std::wstring DeviationText(double milliseconds, wchar_t decimalSeparator);

}  // namespace tagrix

#endif
