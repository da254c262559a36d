// The playlist builder's controls: the files in their order, the folder and the name.
#ifndef TAGRIX_TOOLS_PLAYLIST_PLS_PAGE_H
#define TAGRIX_TOOLS_PLAYLIST_PLS_PAGE_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {

struct PlaylistPage {
  Frame files_frm{"files_frm"};
  ListBox pls_lst{"pls_lst", true};  // full paths; a file may stand there more than once
  Button pls_add_btn{"pls_add_btn"}, pls_addfolder_btn{"pls_addfolder_btn"};
  Button pls_delete_btn{"pls_delete_btn"}, pls_reset_btn{"pls_reset_btn"};

  Frame pls_output_frm{"pls_output_frm"};
  TextBox pls_output_txt{"pls_output_txt"};  // without a trailing "\"
  Button pls_output_btn{"pls_output_btn"};

  Label pls_name_lbl{"pls_name_lbl"};
  TextBox pls_name_txt{"pls_name_txt"};  // without the ending
  Button pls_go_btn{"pls_go_btn"};
};

Node PlaylistLayout(PlaylistPage& page);
// Sets the captions from the language texts.
void TranslatePlaylistPage(PlaylistPage& page, Context& context);

}  // namespace tagrix

#endif
