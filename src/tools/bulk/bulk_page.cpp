#include "tools/bulk/bulk_page.h"

#include <utility>

#include "core/messages.h"
#include "core/notices.h"
#include "forms/captions.h"

namespace tagrix {
namespace {

// The same in every language, and with the example of its counterpart.
constexpr const wchar_t* kMergeCaption = L"Merge title (e.g. AnOdeToNoOne ->  An Ode To No One)";

}  // namespace

Node BulkLayout(BulkPage& page) {
  Node files = Column(
      {Stretch(1, MinSize(480, 160, page.bulk_lst)),
       Framed(page.bulk_list_frm, Row({page.add_btn, page.addfolder_btn, Spacer(), page.Command3, page.reset_btn}))});
  Node spaces = Column({page.space_chk, page.under_chk, page.multi_chk, page.merge_chk, page.unmerge_chk, Spacer()});
  Node letterCase = Column({page.case_chk, Framed(page.case_frm, Column({page.lc_rdo, page.uc_rdo, page.fluc_rdo}))});
  Node rules = Gap(2 * kWideGap, Row({Stretch(1, std::move(spaces)), Stretch(1, std::move(letterCase))}));
  Node run =
      Row({Stretch(1, page.bulk_cur_bar), MinSize(40, 0, page.bulk_cur_hst), page.bulk_undo_btn, page.bulk_go_btn});
  return Column({Stretch(1, Framed(page.bulk_files_frm, std::move(files))),
                 Framed(page.bulk_rules_frm, std::move(rules)), std::move(run)});
}

void TranslateBulkPage(BulkPage& page, Context& context) {
  SetCaptions(context, {{page.bulk_files_frm, message::kFiles},
                        {page.add_btn, message::kAddFiles},
                        {page.addfolder_btn, message::kAddFolder},
                        {page.Command3, message::kDelete},
                        {page.reset_btn, message::kReset},
                        {page.space_chk, message::kSpaces},
                        {page.multi_chk, message::kMultiSpaces},
                        {page.under_chk, message::kUnderscores},
                        {page.unmerge_chk, message::kUnmerge},
                        {page.case_chk, message::kCase},
                        {page.case_frm, message::kCaseFrame},
                        {page.lc_rdo, message::kLowerCase},
                        {page.uc_rdo, message::kUpperCase},
                        {page.fluc_rdo, message::kCapitals},
                        {page.bulk_go_btn, message::kStart},
                        {page.bulk_undo_btn, message::kUndo}});
  page.merge_chk.SetText(kMergeCaption);
  page.bulk_lst.SetHint(context.Text(message::kFilesHint));
  page.bulk_cur_bar.SetSpokenName(context.Text(message::kProgress));
  page.bulk_lst.SetColumns({{context.Text(message::kNameBefore), 0},
                            {context.Text(message::kNameAfter), 0},
                            {WithoutAccessKeys(context.Text(message::kFolder)), 0}});
}

}  // namespace tagrix
