// Loads language files from the program's folder.
#ifndef TAGRIX_CORE_LOAD_LANGUAGE_H
#define TAGRIX_CORE_LOAD_LANGUAGE_H

#include <string>

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// Loads a language file of the program folder ("english.lf") and its companion ("english.lfx") into `context.language`,
// shows it in the language combo and stores it in the setting "langue". A missing file leaves no texts; an invalid one
// is replaced by English or, where that is missing, leaves the texts as they were; an invalid English file is reported
// and ends the program (throws EndProgram). Throws Failure, with the texts as they were, when a file can't be read.
void loadlangue(Context& context, ComboBox& setup_lngcmb, std::wstring file);

// Appends every language file of the program folder but English to the combo.
void listlangues(Context& context, ComboBox& setup_lngcmb);

}  // namespace tagrix

#endif
