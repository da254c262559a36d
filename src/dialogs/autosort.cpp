#include "dialogs/autosort.h"

#include <numeric>
#include <utility>

#include "audio/measure.h"
#include "base/times.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "match/sort_files.h"
#include "views/comparison_table.h"

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
                        {dialog.ok_btn, message::kConfirmSort}});
}

Node Layout(Autosort& dialog) {
  Node method = Row({Column({dialog.fast_rdo, dialog.Q_rdo}), Spacer(), dialog.search_btn});
  Node progress = Row({Stretch(1, dialog.cur_bar), MinSize(40, 0, dialog.cur_hst)});
  return Margin(10, Column({Framed(dialog.method_frm, std::move(method)), Framed(dialog.prog_frm, std::move(progress)),
                            Stretch(1, Framed(dialog.res_frm, Column({Stretch(1, MinSize(620, 260, dialog.lst))}))),
                            Row({Spacer(), dialog.ok_btn})}));
}

void MeasureFiles(Autosort& dialog, Context& context, const AlbumSession& session, Progress& progress) {
  for (int i = 0; i < dialog.lst.Count(); ++i) {
    progress.Percent(Percentage(i, dialog.lst.Count()));
    progress.LetEventsRun();
    const std::wstring path = session.folder + L"\\" + dialog.lst.ItemText(i);
    dialog.lst.SetValue(i, MeasureFile(context.files, path, [&] { progress.LetEventsRun(); }));
  }
  progress.LetEventsRun();
}

void SortList(Autosort& dialog, const AlbumSession& session, Progress& progress) {
  ListBox& lst = dialog.lst;
  const std::vector<std::wstring> names = lst.Texts();
  std::vector<std::int32_t> files, tracks;
  for (int i = 0; i < lst.Count(); ++i) files.push_back(lst.Value(i));
  for (const DiscTrack& track : session.disc.tracks) tracks.push_back(track.frames);

  dialog.order = SortFiles(files, tracks, [&](std::size_t done) {
    progress.Percent(Percentage(static_cast<int>(done), TrackCount(session)));
    progress.LetEventsRun();
  });
  for (int i = 0; i < lst.Count(); ++i) {
    const auto from = static_cast<std::size_t>(dialog.order[static_cast<std::size_t>(i)]);
    lst.SetItemText(i, names[from]);
    lst.SetValue(i, files[from]);
  }
}

void Search(Autosort& dialog, Context& context, const AlbumSession& session) {
  dialog.ok_btn.SetEnabled(false);
  {
    LongWork work(context, {&dialog.search_btn, &dialog.lst}, dialog.cur_bar, &dialog.cur_hst);
    dialog.lst.Clear();
    for (const AlbumFile& file : session.files) dialog.lst.Add(file.name);
    MeasureFiles(dialog, context, session, work);
    SortList(dialog, session, work);
  }
  dialog.ok_btn.SetEnabled(true);
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

void AutoSort(Context& context, AlbumSession& session) {
  Autosort dialog;
  transme(dialog, context);
  ShowComparison(dialog.lst, context, [&](int i) { return RowAt(dialog, session, i); });
  dialog.fast_rdo.Choose();
  dialog.ok_btn.SetEnabled(false);

  dialog.search_btn.clicked = Command(context, [&] { Search(dialog, context, session); });
  dialog.ok_btn.clicked = Command(context, [&] {
    ReorderFiles(session, dialog.order);
    dialog.form.Close();
  });

  dialog.form.canClose = [&] { return !AtWork(context); };
  dialog.form.layout = Layout(dialog);
  dialog.form.firstFocus = &dialog.search_btn;
  dialog.form.startSize = {720, 520};
  ShowModal(context, dialog.form);
}

}  // namespace tagrix
