// A list that shows each file beside its track: number, file, time, track, time, difference.
#ifndef TAGRIX_DIALOGS_COMPARISON_TABLE_H
#define TAGRIX_DIALOGS_COMPARISON_TABLE_H

#include <string>

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// Gives `table` the columns; its row i shows place i of the two lists, which must outlive it. `table` may be `files`.
void ShowComparison(ListBox& table, Context& context, const ListBox& files, const ListBox& tracks);

// A difference with its sign: "+3.4 s", from a minute on "+1:05"; without a sign for deviations.
std::wstring DifferenceText(double milliseconds, wchar_t decimalSeparator);
std::wstring DeviationText(double milliseconds, wchar_t decimalSeparator);

}  // namespace tagrix

#endif
