// The window that measures the files of an album and shows how they fit the tracks of the disc.
#ifndef TAGRIX_DIALOGS_STATISTICS_H
#define TAGRIX_DIALOGS_STATISTICS_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_controls.h"
#include "session/album_session.h"
#include "views/comparison_chart.h"

namespace tagrix {

struct Statistics {
  Label verdict_lbl{"verdict_lbl", LabelStyle::Heading};
  Label how_lbl{"how_lbl", LabelStyle::Literal};  // how the files were measured
  Label maximum_lbl{"maximum_lbl"}, global_lbl{"global_lbl"}, quadratic_lbl{"quadratic_lbl"}, fakes_lbl{"fakes_lbl"};
  Label maximum_value_lbl{"maximum_value_lbl", LabelStyle::Literal};
  Label global_value_lbl{"global_value_lbl", LabelStyle::Literal};
  Label quadratic_value_lbl{"quadratic_value_lbl", LabelStyle::Literal};
  Label fakes_value_lbl{"fakes_value_lbl", LabelStyle::Literal};
  Frame chart_frm{"chart_frm"};
  Picture chart_pic{"chart_pic"};
  ListBox places_lst{"places_lst"};
  ProgressBox measure_bar{"measure_bar"};
  Button ok_btn{"ok_btn"};

  ComparisonChart chart;
  Form form{"statistics"};
};

// Measures every file of the session and stores the milliseconds (0: can't be measured), showing meanwhile how the
// files compare with the tracks. Closing the window ends the measuring.
void ShowStatistics(Context& context, AlbumSession& session);

}  // namespace tagrix

#endif
