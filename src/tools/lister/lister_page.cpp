#include "tools/lister/lister_page.h"

#include <string>
#include <utility>

#include "core/messages.h"
#include "core/notices.h"
#include "tools/lister/lister_pattern.h"

namespace tagrix {
namespace {

std::wstring HelpLines(Context& context) {
  std::wstring lines;
  int token = 1;
  for (const int message :
       {message::kHelpName, message::kHelpEnding, message::kHelpFormat, message::kHelpSize, message::kHelpFolder}) {
    lines += L"%" + std::to_wstring(token++) + L" : " + context.Text(message) + L"\r\n";
  }
  return lines;
}

}  // namespace

Node ListerLayout(ListerPage& page) {
  Node input = Column({Row({Stretch(1, page.lister_input_txt), page.input_btn}), page.recurse_chk});
  Node output = Column({Row({Stretch(1, page.lister_output_txt), page.output_btn}),
                        Row({page.ficname_lbl, Stretch(1, page.ficname_txt)})});
  Node line = Column({page.pattern_txt, page.sample_lbl});
  Node how = Row({Framed(page.lister_format_frm, Column({Stretch(1, MinSize(140, 130, page.ext_lst))})),
                  Stretch(1, Column({Framed(page.lister_pattern_frm, std::move(line)),
                                     Stretch(1, Framed(page.lister_help_frm, Column({page.pathlp_lbl, Spacer()})))}))});
  return Column({Framed(page.lister_input_frm, std::move(input)), Framed(page.lister_output_frm, std::move(output)),
                 Stretch(1, std::move(how)), Row({Spacer(), page.lister_go_btn})});
}

void ShowListerSample(ListerPage& page, Context& context) {
  page.sample_lbl.SetText(context.Text(message::kSample) + L" " + ListerSample(page.pattern_txt.Text()));
}

void TranslateListerPage(ListerPage& page, Context& context) {
  SetCaptions(context, {{page.lister_input_frm, message::kInputFolder},
                        {page.input_btn, message::kBrowse},
                        {page.recurse_chk, message::kRecurseSubfolders},
                        {page.lister_output_frm, message::kOutputFolder},
                        {page.output_btn, message::kBrowse},
                        {page.ficname_lbl, message::kNameColon},
                        {page.lister_format_frm, message::kFormat},
                        {page.lister_pattern_frm, message::kPatternColon},
                        {page.lister_help_frm, message::kPatternHelp},
                        {page.lister_go_btn, message::kStart}});
  page.pathlp_lbl.SetText(HelpLines(context));
  ShowListerSample(page, context);
}

}  // namespace tagrix
