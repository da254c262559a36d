#include "freedb/server_list.h"

#include "base/publisher.h"

namespace tagrix {

std::wstring FreeDbServerList(bool withLabels) {
  std::wstring list;
  for (const auto& [host, label] : publisher::kFreeDbServers) {
    list += host;
    if (withLabels) list.append(L" (").append(label).append(L")");
    list += L"\r\n";
  }
  return list;
}

}  // namespace tagrix
