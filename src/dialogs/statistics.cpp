#include "dialogs/statistics.h"

#include <cstdint>
#include <utility>

#include "core/dispatch.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/session.h"
#include "dialogs/comparison_table.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kRedrawEvery = 60;  // milliseconds: often enough to look alive, too seldom to cost time

// What the window works on.
struct Album {
  const std::wstring& folder;
  ListBox& files;
  const ListBox& tracks;
};

void transme(Statistics& window, Context& context) {
  window.form.caption = context.Text(message::kStatisticsCaption);
  SetCaptions(context, {{window.maximum_lbl, message::kMaximumDeviation},
                        {window.global_lbl, message::kGlobalDeviation},
                        {window.quadratic_lbl, message::kQuadraticDeviation},
                        {window.fakes_lbl, message::kFakeTracks},
                        {window.chart_frm, message::kDifferenceChart},
                        {window.ok_btn, message::kOk}});
  window.chart.legend = {context.Text(message::kUnmeasured), context.Text(message::kWithoutFile),
                         context.Text(message::kWithoutTrack)};
}

Node Figure(Label& label, Label& value) { return Gap(4, Row({label, MinSize(48, 0, value)})); }

Node Layout(Statistics& window) {
  Node figures = Row({Figure(window.maximum_lbl, window.maximum_value_lbl), Spacer(),
                      Figure(window.global_lbl, window.global_value_lbl), Spacer(),
                      Figure(window.quadratic_lbl, window.quadratic_value_lbl), Spacer(),
                      Figure(window.fakes_lbl, window.fakes_value_lbl)});
  return Margin(
      12,
      Gap(10, Column({Wrap(700, window.verdict_lbl), std::move(figures),
                      Stretch(3, Framed(window.chart_frm, Column({Stretch(1, MinSize(700, 200, window.chart_pic))}))),
                      Stretch(2, MinSize(700, 150, window.places_lst)),
                      Row({MinSize(200, 0, window.measure_bar), Spacer(), window.ok_btn})})));
}

std::wstring VerdictText(Context& context, const Diagnosis& diagnosis) {
  const auto atPlace = [&](int text) {
    return FillMessage(context.Text(text), {std::to_wstring(diagnosis.place + 1)});
  };
  switch (diagnosis.verdict) {
    case Verdict::Fits:
      return context.Text(message::kVerdictFits);
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

int CountFakes(const ListBox& files) {
  int fakes = 0;
  for (int i = 0; i < files.Count(); ++i) fakes += IsFakeTrack(files.ItemText(i)) ? 1 : 0;
  return fakes;
}

// Brings everything that is drawn or computed up to date with the lists.
void ShowFigures(Statistics& window, Context& context, const Album& album) {
  window.chart.places = Places(album.files, album.tracks);
  const Deviations deviations = DeviationsOf(window.chart.places);
  const auto text = [&](double milliseconds) {
    return deviations.compared == 0 ? std::wstring(L"\u2013")
                                    : DeviationText(milliseconds, context.codePage.DecimalSeparator());
  };
  window.maximum_value_lbl.SetText(text(deviations.maximum));
  window.global_value_lbl.SetText(text(deviations.mean));
  window.quadratic_value_lbl.SetText(text(deviations.quadratic));
  window.chart_pic.Refresh();
  window.places_lst.Refresh();
}

// A file that can't even be read is shown as one that can't be measured: the window is there to find such files.
std::int32_t Measure(Context& context, const std::wstring& path) {
  try {
    return MeasureFile(context, path);
  } catch (const Failure&) {
    return 0;
  }
}

void ShowMeasuring(Statistics& window, Context& context, int done, int count) {
  window.verdict_lbl.SetText(
      FillMessage(context.Text(message::kMeasuring), {std::to_wstring(done), std::to_wstring(count)}));
  window.measure_bar.SetPercent(Percentage(done, count));
}

void MeasureFiles(Statistics& window, Context& context, const Album& album) {
  const int count = album.files.Count();
  std::uint64_t redrawn = 0;
  for (int i = 0; i < count; ++i) {
    const std::wstring& name = album.files.ItemText(i);
    if (!IsFakeTrack(name)) album.files.SetValue(i, Measure(context, album.folder + L"\\" + name));
    window.chart.measured = i + 1;
    if (context.events.TickCount() - redrawn >= kRedrawEvery) {
      redrawn = context.events.TickCount();
      ShowMeasuring(window, context, i + 1, count);
      ShowFigures(window, context, album);
    }
    context.events.DoEvents();
    if (window.form.Closing()) return;
  }
  window.chart.measured = PlaceCount(album.files, album.tracks);
  ShowFigures(window, context, album);
  window.verdict_lbl.SetText(VerdictText(context, Diagnose(window.chart.places)));
  window.measure_bar.SetVisible(false);
}

}  // namespace

void ShowStatistics(Context& context, const std::wstring& folder, ListBox& mp3_lst, const ListBox& new_lst) {
  const Album album{folder, mp3_lst, new_lst};
  Statistics window;
  transme(window, context);
  for (int i = 0; i < mp3_lst.Count(); ++i) mp3_lst.SetValue(i, 0);
  for (int i = 0; i < PlaceCount(mp3_lst, new_lst); ++i) window.places_lst.Add(std::to_wstring(i + 1));
  ShowComparison(window.places_lst, context, mp3_lst, new_lst);
  window.fakes_value_lbl.SetText(std::to_wstring(CountFakes(mp3_lst)));
  ShowMeasuring(window, context, 0, mp3_lst.Count());
  ShowFigures(window, context, album);

  window.chart_pic.paint = [&](Canvas& canvas) { DrawComparison(canvas, window.chart); };
  window.places_lst.selectionChanged = Notice(context, [&] {
    window.chart.selected = window.places_lst.SelectedIndex();
    window.chart_pic.Refresh();
  });
  window.ok_btn.clicked = [&] { window.form.Close(); };  // at any time, also while it measures
  window.form.shown = Command(context, [&] { MeasureFiles(window, context, album); });

  window.form.layout = Layout(window);
  window.form.defaultButton = window.form.cancelButton = &window.ok_btn;
  window.form.firstFocus = &window.places_lst;
  window.form.startSize = {820, 640};
  ShowModal(context, window.form);
}

}  // namespace tagrix
