#include "dialogs/autosort.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "dialogs/comparison.h"
#include "dialogs/comparison_table.h"

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

void ShowSearch(Autosort& dialog, Context& context, int percent) {
  dialog.cur_bar.SetPercent(percent);
  dialog.cur_hst.SetText(std::to_wstring(percent) + L" %");
  context.events.DoEvents();
}

// The dialog while it searches: it can't be closed, and there is nothing to confirm.
class Searching {
 public:
  explicit Searching(Autosort& dialog) : dialog_(dialog) { Set(true); }
  ~Searching() { Set(false); }
  Searching(const Searching&) = delete;
  Searching& operator=(const Searching&) = delete;

 private:
  void Set(bool searching) {
    dialog_.searching = searching;
    dialog_.search_btn.SetEnabled(!searching);
    dialog_.lst.SetEnabled(!searching);
    dialog_.cur_bar.SetPercent(0);
    dialog_.cur_hst.SetText({});
  }
  Autosort& dialog_;
};

void MeasureFiles(Autosort& dialog, Context& context, const std::wstring& folder) {
  for (int i = 0; i < dialog.lst.Count(); ++i) {
    ShowSearch(dialog, context, Percentage(i, dialog.lst.Count()));
    dialog.lst.SetValue(i, MeasureFile(context, folder + L"\\" + dialog.lst.ItemText(i)));
  }
  context.events.DoEvents();
}

void SortFiles(Autosort& dialog, Context& context, const ListBox& new_lst) {
  ListBox& lst = dialog.lst;
  const std::vector<std::wstring> names = lst.Texts();
  std::vector<std::int32_t> files, tracks;
  for (int i = 0; i < lst.Count(); ++i) files.push_back(lst.Value(i));
  for (int i = 0; i < new_lst.Count(); ++i) tracks.push_back(new_lst.Value(i));

  const std::vector<int> order = MatchFiles(files, tracks, [&](std::size_t done) {
    ShowSearch(dialog, context, Percentage(static_cast<int>(done), new_lst.Count()));
  });
  for (int i = 0; i < lst.Count(); ++i) {
    const auto from = static_cast<std::size_t>(order[static_cast<std::size_t>(i)]);
    lst.SetItemText(i, names[from]);
    lst.SetValue(i, files[from]);
  }
}

void CopyTexts(const ListBox& from, ListBox& to) {
  to.Clear();
  to.Append(from.Texts());
}

}  // namespace

void AutoSort(Context& context, const std::wstring& folder, ListBox& mp3_lst, const ListBox& new_lst) {
  Autosort dialog;
  transme(dialog, context);
  ShowComparison(dialog.lst, context, dialog.lst, new_lst);
  dialog.fast_rdo.Choose();
  dialog.ok_btn.SetEnabled(false);

  dialog.search_btn.clicked = Command(context, [&] {
    dialog.ok_btn.SetEnabled(false);
    {
      const Searching searching(dialog);
      CopyTexts(mp3_lst, dialog.lst);
      MeasureFiles(dialog, context, folder);
      SortFiles(dialog, context, new_lst);
    }
    dialog.ok_btn.SetEnabled(true);
  });
  dialog.ok_btn.clicked = Command(context, [&] {
    CopyTexts(dialog.lst, mp3_lst);
    dialog.form.Close();
  });

  dialog.form.canClose = [&] { return !dialog.searching; };
  dialog.form.layout = Layout(dialog);
  dialog.form.firstFocus = &dialog.search_btn;
  dialog.form.startSize = {720, 520};
  ShowModal(context, dialog.form);
}

}  // namespace tagrix
