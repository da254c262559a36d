// What the setup page does: shows every setting, checks them and saves them all at once.
#ifndef TAGRIX_TOOLS_SETUP_SETUP_MOD_H
#define TAGRIX_TOOLS_SETUP_SETUP_MOD_H

#include <functional>

#include "core/context.h"
#include "tools/setup/setup_page.h"

namespace tagrix {

// Wires the events and shows the settings. `retranslate` sets the captions of the whole window after the language has
// changed. The language combo is filled by the start-up.
void InitSetupPage(SetupPage& page, Context& context, std::function<void()> retranslate);

// Shows the settings, or their defaults where they are empty.
void LoadSettings(SetupPage& page, Context& context);

// Shows how tags are written; Apply's question may have changed that meanwhile.
void LoadTagStyle(SetupPage& page, Context& context);

// Saves every setting and changes the language. Saves nothing when the proxy is ticked and has no name.
void SaveSetup(SetupPage& page, Context& context, const std::function<void()>& retranslate);

// Shows what the patterns make of a sample track.
void ShowSamples(SetupPage& page, Context& context);

}  // namespace tagrix

#endif
