// The dialog that chooses one of the genres that an ID3v1 tag can express.
#ifndef TAGRIX_DIALOGS_GENRE_PICKER_H
#define TAGRIX_DIALOGS_GENRE_PICKER_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {

struct GenrePicker {
  ListBox List1{"List1"};
  Button ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};
  Form form{"genre"};
};

// Lets the user choose among `context.styles`; the choice becomes the box's text.
void ChooseGenre(Context& context, TextBox& genre_txt);

}  // namespace tagrix

#endif
