#include "tools/burn/burn_page.h"

#include "core/messages.h"
#include "core/notices.h"
#include "tools/burn/capacity.h"

namespace tagrix {

Node BurnLayout(BurnPage& page) {
  const Node buttons = Column({page.burn_add_btn, page.burn_addfolder_btn, page.burn_delete_btn, page.burn_reset_btn,
                               Spacer(), page.burn_up_btn, page.burn_down_btn, Spacer()});
  const Node capacity = Framed(page.burn_prog_hst, Column({MinSize(240, 46, page.burn_prog_bar)}));
  return Framed(page.burn_frm,
                Column({
                    Stretch(1, Framed(page.burn_files_frm, Row({Stretch(1, page.burn_lst), buttons}))),
                    Framed(page.burn_prog_frm, Column({capacity, page.burn_time_lbl})),
                    Row({MinSize(208, 0, page.c2cd_btn), Spacer(), MinSize(120, kTallButton, page.burn_btn)}),
                }));
}

void ShowBurnTime(BurnPage& page, Context& context) {
  page.burn_time_lbl.SetText(context.Text(message::kBurnTime) + L" " + BurnTime(page.totalTime));
  page.burn_prog_bar.Refresh();
}

void TranslateBurnPage(BurnPage& page, Context& context) {
  SetCaptions(context, {{page.burn_files_frm, message::kFiles},
                        {page.burn_add_btn, message::kAddFiles},
                        {page.burn_addfolder_btn, message::kAddFolder},
                        {page.burn_delete_btn, message::kDelete},
                        {page.burn_reset_btn, message::kReset},
                        {page.burn_prog_frm, message::kCapacity},
                        {page.burn_btn, message::kBurn}});
  page.burn_up_btn.SetTooltip(context.Text(message::kMoveUp));
  page.burn_down_btn.SetTooltip(context.Text(message::kMoveDown));
  page.burn_lst.SetHint(context.Text(message::kFilesHint));
  page.burn_lst.SetColumns({{context.Text(message::kFileColumn)}, {context.Text(message::kTimeColumn), 70, true}});
  ShowBurnTime(page, context);
}

}  // namespace tagrix
