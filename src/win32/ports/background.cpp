#include "win32/ports/background.h"

#include <windows.h>

#include <memory>
#include <utility>

#include "win32/ports/unique.h"

namespace tagrix {
namespace {

using Work = std::function<void()>;

DWORD WINAPI RunOwned(void* work) {
  const std::unique_ptr<Work> owned(static_cast<Work*>(work));
  (*owned)();
  return 0;
}

}  // namespace

void RunInBackground(std::function<void()> work) {
  Work* const owned = std::make_unique<Work>(std::move(work)).release();  // `RunOwned` takes it over
  const UniqueKernel thread(CreateThread(nullptr, 0, RunOwned, owned, 0, nullptr));
  if (!thread) RunOwned(owned);
}

}  // namespace tagrix
