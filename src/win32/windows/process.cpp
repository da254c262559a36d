#include "win32/windows/process.h"

#include <exception>
#include <new>

#include "base/failure.h"
#include "base/publisher.h"
#include "base/text.h"
#include "core/failure_text.h"

namespace tagrix {
namespace {

void Show(HWND owner, const wchar_t* text) { MessageBoxW(owner, text, publisher::kProduct, MB_OK | MB_ICONERROR); }

}  // namespace

void PrepareProcess() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
  SetDllDirectoryW(L"");  // takes the current folder out of what searches the old way
}

int RunShowingFailures(const std::function<int()>& program) {
  try {
    return program();
  } catch (...) {
    ShowException(nullptr);
    return 1;
  }
}

void ShowException(HWND owner) noexcept {
  constexpr const wchar_t* kNoMemory = L"There is not enough memory.";
  try {
    throw;
  } catch (const std::bad_alloc&) {
    Show(owner, kNoMemory);
  } catch (const std::exception& error) {
    const auto* failure = dynamic_cast<const Failure*>(&error);
    try {
      Show(owner, (failure != nullptr ? FailureText(Language(), *failure) : Widen(error.what())).c_str());
    } catch (const std::bad_alloc&) {
      Show(owner, kNoMemory);
    }
  } catch (...) {
    Show(owner, L"Something unexpected has happened.");
  }
}

}  // namespace tagrix
