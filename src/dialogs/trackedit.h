// The dialog that corrects the title of one track.
#ifndef TAGRIX_DIALOGS_TRACKEDIT_H
#define TAGRIX_DIALOGS_TRACKEDIT_H

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"
#include "sources/disc_source.h"

namespace tagrix {

struct TrackEdit {
  TextBox name_txt{"name_txt"};
  Button ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};
  Form form{"trackedit"};
};

// Lets the user edit the title of a track. True when the user has confirmed.
bool EditTrackName(Context& context, DiscTrack& track);

}  // namespace tagrix

#endif
