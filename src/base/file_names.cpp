#include "base/file_names.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::wstring_view kForbidden = L"/\\:?*\"<>|", kInNoPath = kForbidden.substr(3);

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

bool CanNameAFile(const std::wstring& path) {
  const auto refused = [](wchar_t c) { return c < L' ' || kInNoPath.find(c) != kInNoPath.npos; };
  // A path that the system is to take literally begins so.
  if (std::any_of(path.begin() + (path.starts_with(L"\\\\?\\") ? 4 : 0), path.end(), refused)) return false;
  const std::wstring whole = WithoutBackslash(path);
  const std::wstring_view name = FileNamePart(whole);
  return !IsDeviceName(name) && (IsRoot(whole) || name.find(L':') == name.npos);
}

}  // namespace tagrix
