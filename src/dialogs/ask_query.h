// The dialog that asks for the words of an album search.
#ifndef TAGRIX_DIALOGS_ASK_QUERY_H
#define TAGRIX_DIALOGS_ASK_QUERY_H

#include <string_view>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/texts.h"

namespace tagrix {

struct AskQuery {
  Frame query_frm{"query_frm"};
  Label txt_lbl{"txt_lbl"};
  TextBox query_txt{"query_txt"};
  Button ok_btn{"ok_btn"};

  Form form{"AskQuery"};
};

// Shows the dialog, with the name of the album's folder as a start unless that lies directly on a drive. OK writes the
// trimmed words to `words`; closing the dialog otherwise leaves them as they are.
void AskForWords(Context& context, std::wstring_view albumFolder, TextBox& words);

}  // namespace tagrix

#endif
