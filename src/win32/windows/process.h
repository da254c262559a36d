// What concerns the process as a whole: what Windows may do in its name, and how it ends when all else has failed.
#ifndef TAGRIX_WIN32_WINDOWS_PROCESS_H
#define TAGRIX_WIN32_WINDOWS_PROCESS_H

#include <windows.h>

#include <functional>

namespace tagrix {

// To be called first. Libraries come from the system's folder alone, and a drive without a disk is a failure, not a
// question to the user.
void PrepareProcess();

// Runs the program and returns what it returns. Whatever it throws is shown in a message box; then it is 1.
int RunShowingFailures(const std::function<int()>& program);

// In a handler: shows the exception in a message box over the window.
void ShowException(HWND owner) noexcept;

}  // namespace tagrix

#endif
