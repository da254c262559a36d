// Makes the small ports of this system: the in-memory twins, or those of Windows.
#ifndef TAGRIX_TESTS_CONTRACT_SMALL_PORTS_H
#define TAGRIX_TESTS_CONTRACT_SMALL_PORTS_H

#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/registry.h"

namespace tagrix {

std::unique_ptr<Registry> MakeRegistry();
// Of the current user; what the twin holds is gone with it.
void DeleteRegistryKey(const std::wstring& key);
std::unique_ptr<CodePage> MakeCodePage();
std::unique_ptr<Clock> MakeClock();

}  // namespace tagrix

#endif
