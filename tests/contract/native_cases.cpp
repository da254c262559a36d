// The twins for the contracts.
#include "contract/files_cases.h"
#include "contract/small_ports.h"
#include "fakes/fakes.h"

namespace tagrix {

void RemoveTree(const std::filesystem::path& folder) { std::filesystem::remove_all(folder); }

std::unique_ptr<Registry> MakeRegistry() { return std::make_unique<FakeRegistry>(); }
void DeleteRegistryKey(const std::wstring&) {}
std::unique_ptr<CodePage> MakeCodePage() { return std::make_unique<FakeCodePage>(); }
std::unique_ptr<Clock> MakeClock() { return std::make_unique<FakeClock>(); }

}  // namespace tagrix
