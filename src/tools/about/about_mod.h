// What the about page does: opens a mail and the web site, and checks for updates.
#ifndef TAGRIX_TOOLS_ABOUT_ABOUT_MOD_H
#define TAGRIX_TOOLS_ABOUT_ABOUT_MOD_H

#include <functional>

#include "core/context.h"
#include "tools/about/about_page.h"

namespace tagrix {

// Wires the events. `checkForUpdate` is what the update button does.
void InitAboutPage(AboutPage& page, Context& context, std::function<void()> checkForUpdate);

}  // namespace tagrix

#endif
