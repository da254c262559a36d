#include "dialogs/trackedit.h"

#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {
namespace {

void transme(TrackEdit& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kTrackEditCaption);
  SetCaptions(context, {{dialog.ok_btn, message::kOk}, {dialog.cancel_btn, message::kCancel}});
}

}  // namespace

bool EditTrackName(Context& context, DiscTrack& track) {
  bool edited = false;
  TrackEdit dialog;
  transme(dialog, context);
  dialog.name_txt.SetSpokenName(context.Text(message::kNewTitle));
  dialog.name_txt.SetText(track.title);
  dialog.ok_btn.clicked = Command(context, [&] {
    track.title = Trim(dialog.name_txt.Text());
    track.edited = edited = true;
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };

  dialog.form.layout = Margin(
      10, Gap(12, Column({MinSize(360, 0, dialog.name_txt), Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})})));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  ShowModal(context, dialog.form);
  return edited;
}

}  // namespace tagrix
