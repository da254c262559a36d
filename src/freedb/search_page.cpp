#include "freedb/search_page.h"

#include "core/publisher.h"
#include "core/text.h"
#include "freedb/text_allowance.h"

namespace tagrix {

std::wstring SearchUrl(std::wstring_view words) {
  return publisher::kFreeDbWebSite + (L"/freedb_search.php?words=" + Replace(words, L" ", L"+")) +
         L"&allfields=NO&fields=artist&fields=title&allcats=YES&grouping=none";
}

std::wstring RecordMarker() { return std::wstring(publisher::kFreeDbWebSite) + L"/freedb_search_fmt.php?cat="; }

std::vector<std::string_view> ScanLinks(std::string_view page, std::string_view marker) {
  std::vector<std::string_view> links;
  TextAllowance allowance(page);
  size_t end = 0;
  for (size_t at = page.find(marker); at != page.npos; at = page.find(marker, at)) {
    at += marker.size();
    if (end < at) end = page.find("</", at);
    if (end == page.npos) break;
    const std::string_view link = page.substr(at, end - at);
    if (!allowance.Take(link)) break;
    links.push_back(link);
  }
  return links;
}

std::vector<Hit> DecodeHits(const std::vector<std::string_view>& links) {
  constexpr std::string_view kId = "&id=", kSmallType = "<font size=-1>";
  std::vector<Hit> hits;
  for (const std::string_view link : links) {
    Hit hit;
    if (const size_t id = link.find(kId); id != link.npos) {
      hit.category = link.substr(0, id);
      const size_t start = id + kId.size();
      if (const size_t quote = link.find('"', start); quote != link.npos) {
        hit.discId = link.substr(start, quote - start);
      }
    }
    if (const size_t bracket = link.find('>'); bracket != link.npos) hit.title = link.substr(bracket + 1);
    const bool otherVersion = hit.title.size() > kSmallType.size() && hit.title.starts_with(kSmallType);
    if (!hit.category.empty() && !hit.discId.empty() && !hit.title.empty() && !otherVersion) hits.push_back(hit);
  }
  return hits;
}

}  // namespace tagrix
