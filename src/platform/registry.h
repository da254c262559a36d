// Port to the registry: string values under keys of two hives.
#ifndef TAGRIX_PLATFORM_REGISTRY_H
#define TAGRIX_PLATFORM_REGISTRY_H

#include <string>

namespace tagrix {

enum class Hive { CurrentUser, LocalMachine };

// Key paths and value names are compared without regard to letter case. Nothing throws.
class Registry {
 public:
  virtual ~Registry() = default;
  // The value's text; empty when the key or the value is missing or not a string.
  virtual std::wstring GetRegValue(Hive hive, const std::wstring& key, const std::wstring& name) = 0;
  // Creates the key when it is missing; a write that fails is not reported.
  virtual void SetRegValue(Hive hive, const std::wstring& key, const std::wstring& name, const std::wstring& text) = 0;
};

}  // namespace tagrix

#endif
