#include "dialogs/statistics.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "audio/measure.h"
#include "base/failure.h"
#include "base/progress.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"
#include "views/comparison_table.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kRedrawEvery = 60;  // milliseconds: often enough to look alive, too seldom to cost time

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

std::ptrdiff_t CountFakes(const AlbumSession& session) {
  return std::count_if(session.files.begin(), session.files.end(), [](const AlbumFile& file) { return file.fake; });
}

ComparedRow RowAt(const AlbumSession& session, int i) {
  const auto at = static_cast<std::size_t>(i);
  return {at < session.files.size() ? session.files[at].name : std::wstring(),
          at < session.disc.tracks.size() ? session.disc.tracks[at].title : std::wstring(), PlaceAt(session, i)};
}

// Brings everything that is drawn or computed up to date with the session.
void ShowFigures(Statistics& window, Context& context, const AlbumSession& session) {
  window.chart.places = PlacesOf(session);
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
    return MeasureFile(context.files, path, [&] { context.events.DoEvents(); });
  } catch (const Failure&) {
    return 0;
  }
}

void ShowMeasuring(Statistics& window, Context& context, int done, int count) {
  window.verdict_lbl.SetText(
      FillMessage(context.Text(message::kMeasuring), {std::to_wstring(done), std::to_wstring(count)}));
  window.measure_bar.SetPercent(Percentage(done, count));
}

void MeasureFiles(Statistics& window, Context& context, AlbumSession& session) {
  const int count = FileCount(session);
  std::uint64_t redrawn = 0;
  for (int i = 0; i < count; ++i) {
    AlbumFile& file = session.files[static_cast<std::size_t>(i)];
    if (!file.fake) file.milliseconds = Measure(context, AlbumPath(session, file.name));
    window.chart.measured = i + 1;
    if (context.events.TickCount() - redrawn >= kRedrawEvery) {
      redrawn = context.events.TickCount();
      ShowMeasuring(window, context, i + 1, count);
      ShowFigures(window, context, session);
    }
    context.events.DoEvents();
    if (window.form.Closing()) return;
  }
  ShowFigures(window, context, session);
  window.chart.measured = static_cast<int>(window.chart.places.size());
  window.verdict_lbl.SetText(VerdictText(context, Diagnose(window.chart.places)));
  window.measure_bar.SetVisible(false);
}

}  // namespace

void ShowStatistics(Context& context, AlbumSession& session) {
  Statistics window;
  transme(window, context);
  for (AlbumFile& file : session.files) file.milliseconds = 0;
  window.fakes_value_lbl.SetText(std::to_wstring(CountFakes(session)));
  ShowMeasuring(window, context, 0, FileCount(session));
  ShowFigures(window, context, session);
  for (std::size_t i = 0; i < window.chart.places.size(); ++i) window.places_lst.Add(std::to_wstring(i + 1));
  ShowComparison(window.places_lst, context, [&](int i) { return RowAt(session, i); });

  window.chart_pic.paint = [&](Canvas& canvas) { DrawComparison(canvas, window.chart); };
  window.places_lst.selectionChanged = Notice(context, [&] {
    window.chart.selected = window.places_lst.SelectedIndex();
    window.chart_pic.Refresh();
  });
  window.ok_btn.clicked = [&] { window.form.Close(); };  // at any time, also while it measures
  window.form.shown = Command(context, [&] { MeasureFiles(window, context, session); });

  window.form.layout = Layout(window);
  window.form.defaultButton = window.form.cancelButton = &window.ok_btn;
  window.form.firstFocus = &window.places_lst;
  window.form.startSize = {820, 640};
  ShowModal(context, window.form);
}

}  // namespace tagrix
