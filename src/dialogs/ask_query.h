// The dialog that asks for the words of an album search and where to search.
#ifndef TAGRIX_DIALOGS_ASK_QUERY_H
#define TAGRIX_DIALOGS_ASK_QUERY_H

#include <string>
#include <string_view>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "sources/source_list.h"

namespace tagrix {

struct AskQuery {
  Frame query_frm{"query_frm"};
  Label txt_lbl{"txt_lbl"};
  TextBox query_txt{"query_txt"};
  Label source_lbl{"source_lbl"};
  ComboBox source_cmb{"source_cmb"};
  Button ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};

  Form form{"AskQuery"};
};

// Shows the dialog, with the name of the album's folder as a start unless that lies directly on a drive, and the source
// chosen last. OK writes the trimmed words to `words`, stores the source and makes it true; closing the dialog
// otherwise leaves both as they are.
bool AskForWords(Context& context, std::wstring_view albumFolder, const SourceList& sources, std::wstring& words);

}  // namespace tagrix

#endif
