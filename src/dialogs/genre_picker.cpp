#include "dialogs/genre_picker.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/letter_case.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"
#include "forms/captions.h"

namespace tagrix {
namespace {

void transme(GenrePicker& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kGenreCaption);
  SetCaptions(context, {{dialog.ok_btn, message::kOk}, {dialog.cancel_btn, message::kCancel}});
}

// Opens the list on the genre that the album has, if it is one of them.
void ShowStyles(GenrePicker& dialog, std::vector<std::wstring> styles, const std::wstring& genre) {
  std::sort(styles.begin(), styles.end());
  auto present = std::find(styles.begin(), styles.end(), genre);
  if (present == styles.end()) {
    const auto isGenre = [&](const std::wstring& style) { return EqualIgnoringCase(style, Trim(genre)); };
    present = std::find_if(styles.begin(), styles.end(), isGenre);
  }
  const int place = present == styles.end() ? -1 : static_cast<int>(present - styles.begin());
  dialog.List1.Append(std::move(styles));
  dialog.List1.SelectOnly(place);
}

void UpdateOk(GenrePicker& dialog) { dialog.ok_btn.SetEnabled(dialog.List1.SelectedIndex() >= 0); }

}  // namespace

void ChooseGenre(Context& context, TextBox& genre_txt) {
  GenrePicker dialog;
  transme(dialog, context);
  dialog.List1.SetSpokenName(WithoutAccessKeys(context.Text(message::kGenre)));
  ShowStyles(dialog, context.styles, genre_txt.Text());
  UpdateOk(dialog);

  dialog.List1.selectionChanged = Notice(context, [&] { UpdateOk(dialog); });
  dialog.List1.doubleClicked = [&](int) { dialog.ok_btn.Click(); };
  dialog.ok_btn.clicked = Command(context, [&] {
    genre_txt.SetText(dialog.List1.ItemText(dialog.List1.SelectedIndex()));
    dialog.form.Close();
  });
  dialog.cancel_btn.clicked = [&] { dialog.form.Close(); };

  dialog.form.layout =
      Margin(kWideGap,
             Column({Stretch(1, MinSize(240, 320, dialog.List1)), Row({Spacer(), dialog.ok_btn, dialog.cancel_btn})}));
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  ShowModal(context, dialog.form);
}

}  // namespace tagrix
