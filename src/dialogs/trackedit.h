// The dialog that corrects a line: the title of a track, the name of a file.
#ifndef TAGRIX_DIALOGS_TRACKEDIT_H
#define TAGRIX_DIALOGS_TRACKEDIT_H

#include <string>

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

// Lets the user edit a line, given the dialog's caption and what the field is called. True when the user has confirmed.
bool EditLine(Context& context, const std::wstring& caption, const std::wstring& spokenName, std::wstring& line);

// Lets the user edit the title of a track. True when the user has confirmed.
bool EditTrackName(Context& context, DiscTrack& track);

}  // namespace tagrix

#endif
