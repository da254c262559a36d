// The burn page's controls: the compilation in its order and how much of a disc it fills.
#ifndef TAGRIX_TOOLS_BURN_BURN_PAGE_H
#define TAGRIX_TOOLS_BURN_BURN_PAGE_H

#include <string>
#include <vector>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_controls.h"

namespace tagrix {

struct BurnPage {
  Frame burn_frm{"burn_frm"};  // around everything, to disable it as one

  Frame burn_files_frm{"burn_files_frm"};
  ListBox burn_lst{"burn_lst", true};  // full paths; value = playing time in whole milliseconds
  Button burn_add_btn{"burn_add_btn"}, burn_addfolder_btn{"burn_addfolder_btn"};
  Button burn_up_btn{"burn_up_btn"}, burn_down_btn{"burn_down_btn"};
  Button burn_delete_btn{"burn_delete_btn"}, burn_reset_btn{"burn_reset_btn"};

  Frame burn_prog_frm{"burn_prog_frm"}, burn_prog_hst{"burn_prog_hst"};
  Picture burn_prog_bar{"burn_prog_bar"};
  Label burn_time_lbl{"burn_time_lbl"};
  Button burn_btn{"burn_btn"}, c2cd_btn{"c2cd_btn"};

  std::vector<std::wstring> pending;  // full paths that are still to be measured
  double totalTime = 0;               // of burn_lst, in milliseconds
};

Node BurnLayout(BurnPage& page);
// Shows the total time and the share of the disc.
void ShowBurnTime(BurnPage& page, Context& context);
// Sets the captions from the language texts.
void TranslateBurnPage(BurnPage& page, Context& context);

}  // namespace tagrix

#endif
