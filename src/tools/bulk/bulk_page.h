// The bulk renamer's controls: the files with the names that they would get, and the cleaning rules.
#ifndef TAGRIX_TOOLS_BULK_BULK_PAGE_H
#define TAGRIX_TOOLS_BULK_BULK_PAGE_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "storage/renaming.h"

namespace tagrix {

struct BulkPage {
  Frame bulk_files_frm{"bulk_files_frm"};
  ListBox bulk_lst{"bulk_lst", true};    // full paths, in the order added
  Frame bulk_list_frm{"bulk_list_frm"};  // around the buttons that change the list
  Button add_btn{"add_btn"}, addfolder_btn{"addfolder_btn"}, Command3{"Command3"}, reset_btn{"reset_btn"};

  Frame bulk_rules_frm{"bulk_rules_frm"};
  CheckBox space_chk{"space_chk"}, multi_chk{"multi_chk"}, under_chk{"under_chk"};
  CheckBox merge_chk{"merge_chk"}, unmerge_chk{"unmerge_chk"}, case_chk{"case_chk"};
  Frame case_frm{"case_frm"};
  OptionGroup cases;
  OptionButton lc_rdo{"lc_rdo", cases}, uc_rdo{"uc_rdo", cases}, fluc_rdo{"fluc_rdo", cases};

  Button bulk_go_btn{"bulk_go_btn"}, bulk_undo_btn{"bulk_undo_btn"};
  ProgressBox bulk_cur_bar{"bulk_cur_bar", false};
  Label bulk_cur_hst{"bulk_cur_hst", LabelStyle::Literal};

  RenameJournal journal;  // full paths before the last run
};

Node BulkLayout(BulkPage& page);
void TranslateBulkPage(BulkPage& page, Context& context);

}  // namespace tagrix

#endif
