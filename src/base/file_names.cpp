#include "base/file_names.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::wstring_view kForbidden = L"/\\:?*\"<>|";

}  // namespace

std::wstring CleanFileName(std::wstring_view text) {
  std::wstring result = WithoutControls(text);
  std::erase_if(result, [](wchar_t c) { return kForbidden.find(c) != kForbidden.npos; });
  return result;
}

std::wstring CleanAndTrimFileName(std::wstring_view text) { return Trim(CleanFileName(text)); }

std::wstring SafeFileName(std::wstring name) {
  if (IsDeviceName(name)) name.insert(std::min(name.find(L'.'), name.size()), L"_");
  return name;
}

}  // namespace tagrix
