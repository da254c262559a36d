// What happens when a library of Windows is loaded at the first call of one of its functions: it comes from the
// system's folder alone, and where it is missing the call is a Failure.
#include <windows.h>
// Needs windows.h before it.
#include <delayimp.h>

#include <atomic>

#include "base/text.h"
#include "win32/ports/system_message.h"

namespace tagrix {
namespace {

std::atomic<const char*> missing;  // the library that was found missing last

// Called in place of a function that isn't there: an exception can pass through it, but not through the loading code.
[[noreturn]] void Refuse() { throw Failure(Action::Open, Widen(missing.load()), SystemMessage(ERROR_MOD_NOT_FOUND)); }

FARPROC WINAPI Hook(unsigned event, DelayLoadInfo* info) {
  if (event == dliNotePreLoadLibrary) {
    const HMODULE library = LoadLibraryExA(info->szDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    // The program itself stands in: it has no such function, which calls this once more.
    return reinterpret_cast<FARPROC>(library != nullptr ? library : GetModuleHandleW(nullptr));
  }
  if (event != dliFailGetProc) return nullptr;
  missing = info->szDll;
  return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(Refuse));
}

}  // namespace
}  // namespace tagrix

// The names are the linker's.
PfnDliHook __pfnDliNotifyHook2 = tagrix::Hook;   // NOLINT(bugprone-reserved-identifier)
PfnDliHook __pfnDliFailureHook2 = tagrix::Hook;  // NOLINT(bugprone-reserved-identifier)
