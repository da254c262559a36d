#include "dialogs/trackedit.h"

#include <string>

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"

namespace tagrix {
namespace {

void transme(TrackEdit& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kTrackEditCaption);
  SetCaptions(context, {{dialog.ok_btn, message::kOk}, {dialog.cancel_btn, message::kCancel}});
}

}  // namespace

void EditTrackName(Context& context, ListBox& tracks_lst, ListBox& new_lst) {
  const int track = tracks_lst.SelectedIndex();
  if (track < 0 || track >= new_lst.Count()) return;

  TrackEdit dialog;
  transme(dialog, context);
  dialog.name_txt.SetText(new_lst.ItemText(track));
  dialog.ok_btn.clicked = Command(context, [&] {
    const std::wstring title = Trim(dialog.name_txt.Text());
    new_lst.SetItemText(track, title);
    // No blank before the title, which tells an edited line from one of the disc record.
    tracks_lst.SetItemText(track, L"[" + TwoDigits(track + 1) + L"]" + title);
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };

  dialog.form.layout = Margin(
      10, Gap(12, Column({MinSize(360, 0, dialog.name_txt), Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})})));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  ShowModal(context, dialog.form);
}

}  // namespace tagrix
