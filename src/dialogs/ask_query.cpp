#include "dialogs/ask_query.h"

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"

namespace tagrix {
namespace {

void transme(AskQuery& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kQueryCaption);
  SetCaptions(context, {{dialog.txt_lbl, message::kQueryText}, {dialog.ok_btn, message::kOk}});
}

void LoadAskQuery(AskQuery& dialog, Context& context, std::wstring_view albumFolder) {
  transme(dialog, context);
  const std::vector<std::wstring> pieces = Split(albumFolder, L"\\");
  if (pieces.size() > 2) dialog.query_txt.SetText(pieces.back());
  dialog.form.layout = Margin(
      10, Column({Framed(dialog.query_frm, Column({Wrap(380, dialog.txt_lbl), MinSize(380, 0, dialog.query_txt)})),
                  Row({Spacer(), dialog.ok_btn})}));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.firstFocus = &dialog.query_txt;
}

}  // namespace

void AskForWords(Context& context, std::wstring_view albumFolder, TextBox& words) {
  AskQuery dialog;
  LoadAskQuery(dialog, context, albumFolder);
  dialog.ok_btn.clicked = Command(context, [&] {
    // Runs of blanks within the words stay as they are.
    words.SetText(Trim(dialog.query_txt.Text()));
    dialog.form.Close();
  });
  ShowModal(context, dialog.form);
}

}  // namespace tagrix
