// The dialog that brings the files of an album into the order of the disc's tracks, by their playing times.
#ifndef TAGRIX_DIALOGS_AUTOSORT_H
#define TAGRIX_DIALOGS_AUTOSORT_H

#include <cstdint>
#include <vector>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "session/album_session.h"

namespace tagrix {

struct Autosort {
  Frame method_frm{"method_frm"}, prog_frm{"prog_frm"}, res_frm{"res_frm"};
  OptionGroup methods;
  OptionButton fast_rdo{"fast_rdo", methods}, Q_rdo{"Q_rdo", methods};  // Q_rdo has no effect yet
  Button search_btn{"search_btn"}, ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};
  ProgressBox cur_bar{"cur_bar", false};
  Label cur_hst{"cur_hst", LabelStyle::Literal};
  Label how_lbl{"how_lbl", LabelStyle::Literal};  // how the files were measured
  ListBox lst{"lst"};                             // the files in the order found; value = milliseconds, 0 unknown

  std::vector<int> order;  // where the files of the list stand in the session
  Form form{"Autosort"};
};

// Lets the user sort the session's files so that each stands at the place of the track that it fits. The session
// changes only when the user confirms; then it is true. `atOnce`: the search begins by itself.
bool AutoSort(Context& context, AlbumSession& session, bool atOnce = false);

}  // namespace tagrix

#endif
