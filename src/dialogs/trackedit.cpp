#include "dialogs/trackedit.h"

#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {
bool EditLine(Context& context, const std::wstring& caption, const std::wstring& spokenName, std::wstring& line) {
  bool edited = false;
  TrackEdit dialog;
  dialog.form.caption = caption;
  SetCaptions(context, {{dialog.ok_btn, message::kOk}, {dialog.cancel_btn, message::kCancel}});
  dialog.name_txt.SetSpokenName(spokenName);
  dialog.name_txt.SetText(line);
  dialog.ok_btn.clicked = Command(context, [&] {
    line = Trim(dialog.name_txt.Text());
    edited = true;
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };

  dialog.form.layout = Margin(
      kWideGap,
      Gap(kWideGap, Column({MinSize(360, 0, dialog.name_txt), Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})})));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  ShowModal(context, dialog.form);
  return edited;
}

bool EditTrackName(Context& context, DiscTrack& track) {
  const bool edited =
      EditLine(context, context.Text(message::kTrackEditCaption), context.Text(message::kNewTitle), track.title);
  track.edited = track.edited || edited;
  return edited;
}

}  // namespace tagrix
