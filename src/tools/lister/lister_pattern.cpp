#include "tools/lister/lister_pattern.h"

#include "core/text.h"

namespace tagrix {
namespace {

constexpr double kMebibyte = 1048576;

}  // namespace

ListerValues ValuesOf(std::wstring_view name, std::uint64_t bytes, std::wstring_view folder, wchar_t decimalSeparator) {
  const std::wstring_view ending = name.substr(name.size() - 4);
  return {std::wstring(name.substr(0, name.size() - 4)), std::wstring(ending), ToUpper(ending.substr(1)),
          Decimals(static_cast<double>(bytes) / kMebibyte, 2, decimalSeparator) + L" Mb", std::wstring(folder)};
}

std::wstring ExpandListerPattern(std::wstring_view pattern, const ListerValues& values) {
  std::wstring line = Replace(Trim(pattern), L"%1", values.name);
  line = Replace(line, L"%2", values.ending);
  line = Replace(line, L"%3", values.format);
  line = Replace(line, L"%4", values.size);
  return Replace(line, L"%5", values.folder);
}

std::wstring ListerSample(std::wstring_view pattern) {
  return ExpandListerPattern(pattern, {L"01 - Zero", L".mp3", L"MP3", L"5,56 Mb", L"c:\\MP3\\Rock\\SP\\"});
}

}  // namespace tagrix
