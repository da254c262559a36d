// The window that closes an operation on many files: what was done, and which files were left out and why.
#ifndef TAGRIX_DIALOGS_SUMMARY_H
#define TAGRIX_DIALOGS_SUMMARY_H

#include <string>
#include <vector>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {

struct SummaryLine {
  std::wstring file, reason;
};

struct Summary {
  Label heading_lbl{"heading_lbl", LabelStyle::Heading};
  Label text_lbl{"text_lbl", LabelStyle::Literal};
  ListBox left_lst{"left_lst"};  // file and reason; not shown when there is none
  Button ok_btn{"ok_btn"};
  Form form{"summary"};
};

void ShowSummary(Context& context, const std::wstring& heading, const std::wstring& text,
                 std::vector<SummaryLine> lines);

}  // namespace tagrix

#endif
