#include "dialogs/autosort.h"

#include <utility>

#include "base/times.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "session/measure_album.h"
#include "views/comparison_table.h"
#include "views/measuring_text.h"

namespace tagrix {
namespace {

void transme(Autosort& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kAutoSortCaption);
  SetCaptions(context, {{dialog.method_frm, message::kMethod},
                        {dialog.fast_rdo, message::kFastSort},
                        {dialog.Q_rdo, message::kQuadraticSort},
                        {dialog.search_btn, message::kAutoSort},
                        {dialog.prog_frm, message::kProgress},
                        {dialog.res_frm, message::kResults},
                        {dialog.ok_btn, message::kConfirmSort},
                        {dialog.cancel_btn, message::kCancel}});
}

Node Layout(Autosort& dialog) {
  Node method = Row({Column({dialog.fast_rdo, dialog.Q_rdo}), Spacer(), dialog.search_btn});
  Node progress = Row({Stretch(1, dialog.cur_bar), MinSize(40, 0, dialog.cur_hst)});
  return Margin(
      kWideGap,
      Column({Framed(dialog.method_frm, std::move(method)), Framed(dialog.prog_frm, std::move(progress)),
              Stretch(1, Framed(dialog.res_frm, Column({Stretch(1, MinSize(620, 260, dialog.lst)), dialog.how_lbl}))),
              Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})}));
}

// Shows the times as they come; a file that can't be read ends the search.
struct ListedTimes : MeasureWatcher {
  explicit ListedTimes(ListBox& list) : lst(list) {}
  void Measured(std::size_t file, std::int32_t milliseconds) override {
    lst.SetValue(static_cast<int>(file), milliseconds);
  }
  void NotRead(const Failure& failure) override { throw failure; }
  ListBox& lst;
};

void ShowOrder(Autosort& dialog, const AlbumSession& session, const AlbumTimes& times) {
  for (int i = 0; i < dialog.lst.Count(); ++i) {
    const auto from = static_cast<std::size_t>(dialog.order[static_cast<std::size_t>(i)]);
    dialog.lst.SetItemText(i, session.files[from].name);
    dialog.lst.SetValue(i, times.milliseconds[from]);
  }
}

void Search(Autosort& dialog, Context& context, const AlbumSession& session) {
  dialog.ok_btn.SetEnabled(false);
  dialog.how_lbl.SetText({});
  {
    LongWork work(context, {&dialog.search_btn, &dialog.lst}, dialog.cur_bar, &dialog.cur_hst);
    dialog.lst.Clear();
    for (const AlbumFile& file : session.files) dialog.lst.Add(file.name);
    ListedTimes listed(dialog.lst);
    const AlbumTimes times = MeasureAlbum(session, context.files, work, listed);
    if (work.Cancelled()) return;
    dialog.order = SortAlbum(session, times, work);
    ShowOrder(dialog, session, times);
    dialog.how_lbl.SetText(MeasuringText(context, times));
  }
  dialog.ok_btn.SetEnabled(true);
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.ok_btn.TakeFocus();
}

ComparedRow RowAt(const Autosort& dialog, const AlbumSession& session, int i) {
  const DiscTrack& track = session.disc.tracks.at(static_cast<std::size_t>(i));
  return {dialog.lst.ItemText(i),
          track.title,
          {.hasFile = true,
           .hasTrack = true,
           .file = static_cast<double>(dialog.lst.Value(i)),
           .track = FramesToMilliseconds(track.frames)}};
}

}  // namespace

bool AutoSort(Context& context, AlbumSession& session, bool atOnce) {
  bool confirmed = false;
  Autosort dialog;
  transme(dialog, context);
  ShowComparison(dialog.lst, context, [&](int i) { return RowAt(dialog, session, i); });
  dialog.fast_rdo.Choose();
  dialog.Q_rdo.SetEnabled(false);
  dialog.ok_btn.SetEnabled(false);

  dialog.search_btn.clicked = Command(context, [&] { Search(dialog, context, session); });
  dialog.ok_btn.clicked = Command(context, [&] {
    ReorderFiles(session, dialog.order);
    confirmed = true;
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] {
    CancelWork(context);  // a search that is under way
    dialog.form.Close();
  };

  dialog.form.cancelButton = &dialog.cancel_btn;
  dialog.form.layout = Layout(dialog);
  dialog.form.firstFocus = &dialog.search_btn;
  dialog.form.startSize = {720, 520};
  if (atOnce) dialog.form.shown = [&] { dialog.search_btn.Click(); };
  ShowModal(context, dialog.form);
  return confirmed;
}

}  // namespace tagrix
