// Windows's own words for an error, and the failure that carries them.
#ifndef TAGRIX_WIN32_PORTS_SYSTEM_MESSAGE_H
#define TAGRIX_WIN32_PORTS_SYSTEM_MESSAGE_H

#include <windows.h>

#include <string>

#include "base/failure.h"

namespace tagrix {

// The system's message in the user's language, in one line without its end.
std::wstring SystemMessage(DWORD error);

// What failed, on which path, and why: the calling thread's last error.
Failure LastErrorFailure(Action action, const std::wstring& path);

}  // namespace tagrix

#endif
