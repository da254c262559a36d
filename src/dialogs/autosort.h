// The dialog that brings the files of an album into the order of the disc's tracks, by their playing times.
#ifndef TAGRIX_DIALOGS_AUTOSORT_H
#define TAGRIX_DIALOGS_AUTOSORT_H

#include <string>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/texts.h"

namespace tagrix {

struct Autosort {
  Frame method_frm{"method_frm"}, prog_frm{"prog_frm"}, res_frm{"res_frm"};
  OptionGroup methods;
  OptionButton fast_rdo{"fast_rdo", methods}, Q_rdo{"Q_rdo", methods};  // Q_rdo has no effect yet
  Button search_btn{"search_btn"}, ok_btn{"ok_btn"};
  ProgressBox cur_bar{"cur_bar"};
  Label cur_hst{"cur_hst", LabelStyle::Literal};
  ListBox lst{"lst"};  // working copy of the files; value = milliseconds, 0 unknown

  bool searching = false;
  Form form{"Autosort"};
};

// Lets the user sort `mp3_lst`, file names of `folder`, so that each stands at the place of the track in `new_lst`
// (values in CD frames) that it fits. The list changes only when the user confirms; its values are 0 then.
void AutoSort(Context& context, const std::wstring& folder, ListBox& mp3_lst, const ListBox& new_lst);

}  // namespace tagrix

#endif
