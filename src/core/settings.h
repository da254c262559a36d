// The settings: string values under one registry key, read when needed and never cached.
#ifndef TAGRIX_CORE_SETTINGS_H
#define TAGRIX_CORE_SETTINGS_H

#include <string>

#include "platform/registry.h"

namespace tagrix {

// The settings key as it is written by the main window, the album and the setup page, and by the side pages. Registry
// keys ignore letter case: both are one key.
inline constexpr const wchar_t* kSettingsKey = L"Software\\Ostrel Corp.\\Tagrix";
inline constexpr const wchar_t* kPageSettingsKey = L"software\\Ostrel Corp.\\Tagrix";

class Settings {
 public:
  explicit Settings(Registry& registry) : registry_(registry) {}

  // The value's text as it stands; empty when it is missing.
  std::wstring Get(const std::wstring& name, const wchar_t* key = kSettingsKey) {
    return registry_.GetRegValue(Hive::CurrentUser, key, name);
  }
  void Put(const std::wstring& name, const std::wstring& text, const wchar_t* key = kSettingsKey) {
    registry_.SetRegValue(Hive::CurrentUser, key, name, text);
  }

 private:
  Registry& registry_;
};

}  // namespace tagrix

#endif
