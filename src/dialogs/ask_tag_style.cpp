#include "dialogs/ask_tag_style.h"

#include <string>

#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {
namespace {

std::wstring ReasonsText(Context& context, const TagStyleReasons& reasons) {
  std::wstring text = context.Text(message::kTagStyleReasons);
  const auto add = [&](int message, int files) {
    if (files > 0) text += L"\r\n\r\n" + FillMessage(context.Text(message), {std::to_wstring(files)});
  };
  add(message::kDropsFrames, reasons.dropsFrames);
  add(message::kOldTag, reasons.oldTag);
  add(message::kLongText, reasons.longText);
  add(message::kForeignText, reasons.foreignText);
  add(message::kOverwritesEnd, reasons.overwritesEnd);
  return text;
}

void transme(AskTagStyleDialog& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kTagStyleCaption);
  SetCaptions(context, {{dialog.standard_btn, message::kWriteStandard},
                        {dialog.classic_btn, message::kWriteClassic},
                        {dialog.cancel_btn, message::kCancel}});
  dialog.kept_lbl.SetText(context.Text(message::kTagStyleKept));
}

}  // namespace

std::optional<TagStyle> AskTagStyle(Context& context, const TagStyleReasons& reasons) {
  constexpr int kTextWidth = 420;
  std::optional<TagStyle> answer;
  AskTagStyleDialog dialog;
  transme(dialog, context);
  dialog.reasons_lbl.SetText(ReasonsText(context, reasons));
  const auto choose = [&](Button& button, TagStyle style) {
    button.clicked = Command(context, [&, style] {
      answer = style;
      context.settings.Put(setting::kTagStyle, TagStyleName(style));
      dialog.form.Close();
    });
  };
  choose(dialog.standard_btn, TagStyle::Standard);
  choose(dialog.classic_btn, TagStyle::Classic);
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };

  dialog.form.layout =
      Margin(kWideGap, Gap(kWideGap, Column({Wrap(kTextWidth, dialog.reasons_lbl),
                                             Column({MinSize(kTextWidth, kTallButton, dialog.standard_btn),
                                                     MinSize(kTextWidth, kTallButton, dialog.classic_btn)}),
                                             Wrap(kTextWidth, dialog.kept_lbl), Row({Spacer(), dialog.cancel_btn})})));
  dialog.form.defaultButton = &dialog.standard_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  dialog.form.firstFocus = &dialog.standard_btn;
  ShowModal(context, dialog.form);
  return answer;
}

}  // namespace tagrix
