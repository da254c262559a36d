// Looks on the publisher's FTP server for a newer version, downloads its installer and starts it.
#ifndef TAGRIX_UPDATE_UPDATER_H
#define TAGRIX_UPDATE_UPDATER_H

#include <string>

#include "base/publisher.h"
#include "core/context.h"

namespace tagrix {

// `silent`: the check at start-up, which says nothing unless there is a newer version. Returns when the check is over;
// events run meanwhile, and a silent check lets other commands run, too. Ends the program when it has started the
// installer.
void CheckForUpdate(Context& context, bool silent, const std::wstring& host = publisher::kFtpHost);

// What the timer does once after the start: a silent check, unless the setting "AutoUpd" forbids it.
void CheckForUpdateAtStart(Context& context, const std::wstring& host = publisher::kFtpHost);

}  // namespace tagrix

#endif
