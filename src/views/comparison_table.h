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

// Gives `table` the columns; its row i shows what `row` says of place i. With `newName` there is one more column, for
// what the file will be called.
void ShowComparison(ListBox& table, Context& context, const std::function<ComparedRow(int i)>& row,
                    const std::function<std::wstring(int i)>& newName = {});
// The columns in the words of the language.
void SetComparisonColumns(ListBox& table, Context& context, bool withNewName);

// Stand before what is doubtful, and what is wrong: a mark that needs no colour.
inline constexpr const wchar_t *kDoubtSign = L"\u25B2 ", *kWrongSign = L"\u25A0 ";

// What the differences mean, in a sentence.
std::wstring VerdictText(Context& context, const Diagnosis& diagnosis);

// A difference with its sign: "+3.4 s", from a minute on "+1:05"; without a sign for deviations.
std::wstring DifferenceText(double milliseconds, wchar_t decimalSeparator);
std::wstring DeviationText(double milliseconds, wchar_t decimalSeparator);

}  // namespace tagrix

#endif
