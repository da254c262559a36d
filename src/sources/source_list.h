// The sources of discs to choose from, by name.
#ifndef TAGRIX_SOURCES_SOURCE_LIST_H
#define TAGRIX_SOURCES_SOURCE_LIST_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "sources/disc_source.h"

namespace tagrix {

struct NamedSource {
  std::wstring name;  // as the setting stores it
  DiscSource& source;
};
using SourceList = std::vector<NamedSource>;  // never empty

// The FreeDB web site, which texts call by another name or not at all.
inline constexpr const wchar_t* kFreeDbName = L"FreeDB";

// The first one when none is called so.
inline const NamedSource& SourceCalled(const SourceList& sources, std::wstring_view name) {
  const auto found = std::find_if(sources.begin(), sources.end(), [&](const auto& one) { return one.name == name; });
  return found == sources.end() ? sources.front() : *found;
}

}  // namespace tagrix

#endif
