// The lister's controls: what to list, where to, and how a line looks.
#ifndef TAGRIX_TOOLS_LISTER_LISTER_PAGE_H
#define TAGRIX_TOOLS_LISTER_LISTER_PAGE_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {

struct ListerPage {
  Frame lister_input_frm{"lister_input_frm"};
  TextBox lister_input_txt{"lister_input_txt"};
  Button input_btn{"input_btn"};
  CheckBox recurse_chk{"recurse_chk"};

  Frame lister_output_frm{"lister_output_frm"};
  TextBox lister_output_txt{"lister_output_txt"};
  Button output_btn{"output_btn"};
  Label ficname_lbl{"ficname_lbl"};
  TextBox ficname_txt{"ficname_txt"};

  Frame lister_format_frm{"lister_format_frm"};
  ListBox ext_lst{"ext_lst", true};

  Frame lister_pattern_frm{"lister_pattern_frm"};
  ComboBox pattern_txt{"pattern_txt", true};
  Label sample_lbl{"sample_lbl", LabelStyle::Literal};
  Frame lister_help_frm{"lister_help_frm"};
  Label pathlp_lbl{"pathlp_lbl", LabelStyle::Literal};  // the tokens

  Button lister_go_btn{"lister_go_btn"};
};

Node ListerLayout(ListerPage& page);
void ShowListerSample(ListerPage& page, Context& context);
// Sets the captions, the help and the sample from the language texts.
void TranslateListerPage(ListerPage& page, Context& context);

}  // namespace tagrix

#endif
