// What the lister does: writes a catalogue of the audio files under a folder.
#ifndef TAGRIX_TOOLS_LISTER_LISTER_MOD_H
#define TAGRIX_TOOLS_LISTER_LISTER_MOD_H

#include "core/context.h"
#include "tools/lister/lister_page.h"

namespace tagrix {

// Wires the events, fills the lists and shows the pattern used last.
void InitListerPage(ListerPage& page, Context& context);

void ChooseListerInput(ListerPage& page, Context& context);
void ChooseListerOutput(ListerPage& page, Context& context);
// Takes characters that no file name may hold out of the name again.
void FilterListerName(ListerPage& page);
// Writes the catalogue: for each folder that holds files of the selected formats "[folder]", a line for each file, and
// an empty line. It takes the place of the target when it is complete.
void RunLister(ListerPage& page, Context& context);

}  // namespace tagrix

#endif
