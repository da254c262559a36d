// The registry of Windows.
#ifndef TAGRIX_WIN32_PORTS_REGISTRY_H
#define TAGRIX_WIN32_PORTS_REGISTRY_H

#include "platform/registry.h"

namespace tagrix {

class WinRegistry : public Registry {
 public:
  // Programs of 32 bits keep their keys for the whole machine apart: what is missing there is looked up among them.
  std::wstring GetRegValue(Hive hive, const std::wstring& key, const std::wstring& name) override;
  void SetRegValue(Hive hive, const std::wstring& key, const std::wstring& name, const std::wstring& text) override;
};

}  // namespace tagrix

#endif
