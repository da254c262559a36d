#include "tools/playlist/pls_page.h"

#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {

Node PlaylistLayout(PlaylistPage& page) {
  const Node buttons =
      Column({page.pls_add_btn, page.pls_addfolder_btn, page.pls_delete_btn, page.pls_reset_btn, Spacer()});
  return Column({
      Stretch(1, Framed(page.files_frm, Row({Stretch(1, page.pls_lst), buttons}))),
      Framed(page.pls_output_frm, Row({Stretch(1, page.pls_output_txt), page.pls_output_btn})),
      Row({page.pls_name_lbl, Stretch(1, page.pls_name_txt), page.pls_go_btn}),
  });
}

void TranslatePlaylistPage(PlaylistPage& page, Context& context) {
  SetCaptions(context, {{page.files_frm, message::kFiles},
                        {page.pls_add_btn, message::kAddFiles},
                        {page.pls_addfolder_btn, message::kAddFolder},
                        {page.pls_delete_btn, message::kDelete},
                        {page.pls_reset_btn, message::kReset},
                        {page.pls_output_frm, message::kOutputFolder},
                        {page.pls_output_btn, message::kBrowse},
                        {page.pls_name_lbl, message::kFileName},
                        {page.pls_go_btn, message::kStart}});
  page.pls_lst.SetHint(context.Text(message::kFilesHint));
}

}  // namespace tagrix
