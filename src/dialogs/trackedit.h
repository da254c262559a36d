// The dialog that corrects the title of one track.
#ifndef TAGRIX_DIALOGS_TRACKEDIT_H
#define TAGRIX_DIALOGS_TRACKEDIT_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/texts.h"

namespace tagrix {

struct TrackEdit {
  TextBox name_txt{"name_txt"};
  Button ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};
  Form form{"trackedit"};
};

// Lets the user edit the title at the selected position of `tracks_lst` (the lines shown) in `new_lst` (the plain
// titles), and writes it to both. Does nothing when no track is selected.
void EditTrackName(Context& context, ListBox& tracks_lst, ListBox& new_lst);

}  // namespace tagrix

#endif
