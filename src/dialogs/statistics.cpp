#include "dialogs/statistics.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/failure.h"
#include "base/progress.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "session/measure_album.h"
#include "views/comparison_table.h"
#include "views/measuring_text.h"

namespace tagrix {
namespace {

constexpr int kContentWidth = 796, kContentHeight = 616;  // at the start
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

Node Figure(Label& label, Label& value) { return Row({label, MinSize(48, 0, value)}); }

Node Layout(Statistics& window) {
  Node figures = Row({Figure(window.maximum_lbl, window.maximum_value_lbl), Spacer(),
                      Figure(window.global_lbl, window.global_value_lbl), Spacer(),
                      Figure(window.quadratic_lbl, window.quadratic_value_lbl), Spacer(),
                      Figure(window.fakes_lbl, window.fakes_value_lbl)});
  return Margin(
      kWideGap,
      Gap(kWideGap,
          Column({Wrap(kContentWidth, window.verdict_lbl), std::move(figures), window.how_lbl,
                  Stretch(3, Framed(window.chart_frm, Column({Stretch(1, MinSize(700, 200, window.chart_pic))}))),
                  Stretch(2, MinSize(700, 150, window.places_lst)),
                  Row({MinSize(200, 0, window.measure_bar), Spacer(), window.ok_btn})})));
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

void ShowMeasuring(Statistics& window, Context& context, int done, int count) {
  window.verdict_lbl.SetText(
      FillMessage(context.Text(message::kMeasuring), {std::to_wstring(done), std::to_wstring(count)}));
}

// Shows the times as they come; closing the window ends the measuring.
class Measuring : public Progress, public MeasureWatcher {
 public:
  Measuring(Statistics& window, Context& context, AlbumSession& session)
      : window_(window), context_(context), session_(session) {}

  void Status(std::wstring_view) override {}
  void Pass(std::wstring_view) override {}
  void Percent(int percent) override { ShowPercent(context_, window_.measure_bar, percent); }
  void LetEventsRun() override { context_.events.DoEvents(); }
  bool Cancelled() const override { return window_.form.Closing(); }

  // A file that can't even be read is shown as one that can't be measured: the window is there to find such files.
  void NotRead(const Failure&) override {}
  void Measured(std::size_t file, std::int32_t milliseconds) override {
    session_.files[file].milliseconds = milliseconds;
    if (!session_.files[file].fake) session_.files[file].length = milliseconds;
    const int done = static_cast<int>(file) + 1;
    window_.chart.measured = std::max(window_.chart.measured, done);
    if (context_.events.TickCount() - redrawn_ < kRedrawEvery) return;
    redrawn_ = context_.events.TickCount();
    ShowMeasuring(window_, context_, done, FileCount(session_));
    ShowFigures(window_, context_, session_);
  }

 private:
  Statistics& window_;
  Context& context_;
  AlbumSession& session_;
  std::uint64_t redrawn_ = 0;
};

void MeasureFiles(Statistics& window, Context& context, AlbumSession& session) {
  Measuring measuring(window, context, session);
  const AlbumTimes times = MeasureAlbum(session, context.files, measuring, measuring);
  context.progress_box.SetPercent(0);
  if (window.form.Closing()) return;
  ShowFigures(window, context, session);
  window.chart.measured = static_cast<int>(window.chart.places.size());
  window.verdict_lbl.SetText(VerdictText(context, Diagnose(window.chart.places)));
  window.how_lbl.SetText(MeasuringText(context, times));
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
  window.chart_pic.clicked = Notice(context, [&](Point at, Size extent) {
    const int place = PlaceAtPoint(window.chart, extent, at);
    if (place >= 0) window.places_lst.ClickItem(place);
  });
  window.places_lst.selectionChanged = Notice(context, [&] {
    window.chart.selected = window.places_lst.SelectedIndex();
    window.chart_pic.Refresh();
  });
  window.ok_btn.clicked = [&] { window.form.Close(); };  // at any time, also while it measures
  window.form.shown = Command(context, [&] { MeasureFiles(window, context, session); });

  window.form.layout = Layout(window);
  window.form.defaultButton = window.form.cancelButton = &window.ok_btn;
  window.form.firstFocus = &window.places_lst;
  window.form.startSize = {kContentWidth + 2 * kWideGap, kContentHeight + 2 * kWideGap};
  ShowModal(context, window.form);
}

}  // namespace tagrix
