#include "session/rename_pattern.h"

#include "base/file_names.h"
#include "base/text.h"

namespace tagrix {
namespace {

// No path is longer. Texts full of tokens would multiply without end.
constexpr std::size_t kLongest = 32767;

// Replaces the token until the name is too long for a file.
std::wstring Fill(std::wstring_view pattern, std::wstring_view token, std::wstring_view value) {
  std::wstring name;
  std::size_t start = 0;
  for (std::size_t at; name.size() <= kLongest && (at = pattern.find(token, start)) != pattern.npos;) {
    name.append(pattern, start, at - start).append(value);
    start = at + token.size();
  }
  return name.append(pattern, start);
}

}  // namespace

std::wstring ExpandPattern(std::wstring_view pattern, std::wstring_view artist, std::wstring_view album,
                           std::int16_t track, std::wstring_view title, std::wstring_view year,
                           std::wstring_view genre) {
  std::wstring name = Fill(pattern, L"%1", Trim(artist));
  name = Fill(name, L"%3", Trim(album));
  name = Fill(name, L"%6", TwoDigits(track));
  name = Fill(name, L"%2", Trim(title));
  name = Fill(name, L"%4", year);
  name = Fill(name, L"%5", genre);
  return CleanFileName(name);
}

std::wstring PatternSample(std::wstring_view pattern, std::wstring_view year) {
  return ExpandPattern(pattern, L"Artist", L"Album", 1, L"Track01", year, L"Genre");
}

std::wstring PlaylistSample(std::wstring_view pattern, std::wstring_view year) {
  return ExpandPattern(pattern, L"Artist", L"Album", 0, {}, year, L"Genre");
}

}  // namespace tagrix
