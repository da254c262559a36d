#include "win32/ports/registry.h"

#include <windows.h>

#include <algorithm>

namespace tagrix {
namespace {

HKEY Root(Hive hive) { return hive == Hive::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

// Half a character at its end is what no text has: nothing is taken from such a value.
std::wstring Read(Hive hive, const std::wstring& key, const std::wstring& name, DWORD view) {
  std::wstring text(128, L'\0');
  DWORD bytes = 0;
  LSTATUS status = ERROR_MORE_DATA;
  while (status == ERROR_MORE_DATA) {
    text.resize(std::max<std::size_t>(2 * text.size(), bytes / sizeof(wchar_t)));
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(Root(hive), key.c_str(), name.c_str(), RRF_RT_REG_SZ | view, nullptr, text.data(), &bytes);
  }
  if (status != ERROR_SUCCESS || bytes % sizeof(wchar_t) != 0) return {};
  text.resize(bytes / sizeof(wchar_t));
  return text.substr(0, text.find(L'\0'));
}

}  // namespace

std::wstring WinRegistry::GetRegValue(Hive hive, const std::wstring& key, const std::wstring& name) {
  std::wstring text = Read(hive, key, name, 0);
  if (text.empty() && hive == Hive::LocalMachine) text = Read(hive, key, name, RRF_SUBKEY_WOW6432KEY);
  return text;
}

void WinRegistry::SetRegValue(Hive hive, const std::wstring& key, const std::wstring& name, const std::wstring& text) {
  RegSetKeyValueW(Root(hive), key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace tagrix
