#include "core/rename_pattern.h"

#include "core/helpers.h"
#include "core/text.h"

namespace tagrix {

std::wstring ExpandPattern(std::wstring_view pattern, std::wstring_view artist, std::wstring_view album,
                           std::int16_t track, std::wstring_view title, std::wstring_view year,
                           std::wstring_view genre) {
  std::wstring name = Replace(pattern, L"%1", Trim(artist));
  name = Replace(name, L"%3", Trim(album));
  name = Replace(name, L"%6", TwoDigits(track));
  name = Replace(name, L"%2", Trim(title));
  name = Replace(name, L"%4", year);
  name = Replace(name, L"%5", genre);
  return CleanFileName(name);
}

std::wstring PatternSample(std::wstring_view pattern, std::wstring_view year) {
  return ExpandPattern(pattern, L"Artist", L"Album", 1, L"Track01", year, L"Genre");
}

std::wstring PlaylistSample(std::wstring_view pattern, std::wstring_view year) {
  return ExpandPattern(pattern, L"Artist", L"Album", 0, {}, year, L"Genre");
}

}  // namespace tagrix
