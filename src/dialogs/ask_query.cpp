#include "dialogs/ask_query.h"

#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {
namespace {

void transme(AskQuery& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kQueryCaption);
  SetCaptions(context, {{dialog.txt_lbl, message::kQueryText},
                        {dialog.source_lbl, message::kSearchIn},
                        {dialog.ok_btn, message::kOk},
                        {dialog.cancel_btn, message::kCancel}});
}

void ListSources(AskQuery& dialog, Context& context, const SourceList& sources) {
  const std::wstring chosen = SourceCalled(sources, context.settings.Get(setting::kSource)).name;
  for (const NamedSource& source : sources) {
    dialog.source_cmb.Add(source.name == kFreeDbName ? context.Text(message::kFreeDbPage) : source.name);
    if (source.name == chosen) dialog.source_cmb.Select(dialog.source_cmb.Count() - 1);
  }
}

void LoadAskQuery(AskQuery& dialog, Context& context, std::wstring_view albumFolder) {
  transme(dialog, context);
  const std::vector<std::wstring> pieces = Split(albumFolder, L"\\");
  if (pieces.size() > 2) dialog.query_txt.SetText(pieces.back());
  dialog.form.layout = Margin(
      kWideGap, Column({Framed(dialog.query_frm, Column({Wrap(380, dialog.txt_lbl), MinSize(380, 0, dialog.query_txt),
                                                         Row({dialog.source_lbl, Stretch(1, dialog.source_cmb)})})),
                        Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})}));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  dialog.form.firstFocus = &dialog.query_txt;
}

}  // namespace

bool AskForWords(Context& context, std::wstring_view albumFolder, const SourceList& sources, std::wstring& words) {
  bool agreed = false;
  AskQuery dialog;
  LoadAskQuery(dialog, context, albumFolder);
  ListSources(dialog, context, sources);
  dialog.ok_btn.clicked = Command(context, [&] {
    // Runs of blanks within the words stay as they are.
    words = Trim(dialog.query_txt.Text());
    const auto chosen = static_cast<std::size_t>(dialog.source_cmb.SelectedIndex());
    context.settings.Put(setting::kSource, sources.at(chosen).name);
    agreed = true;
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };
  ShowModal(context, dialog.form);
  return agreed;
}

}  // namespace tagrix
