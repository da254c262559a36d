#include "freedb/search_page.h"

#include "base/text.h"

namespace tagrix {

std::wstring FreeDbSite(Settings& settings) {
  std::wstring site = settings.Get(setting::kFreeDbSite);
  while (site.ends_with(L'/')) site.pop_back();
  return site.find(L"://") == site.npos ? L"http://" + site : site;
}

std::wstring SearchUrl(const std::wstring& site, std::wstring_view words) {
  return site + L"/freedb_search.php?words=" + Replace(words, L" ", L"+") +
         L"&allfields=NO&fields=artist&fields=title&allcats=YES&grouping=none";
}

std::wstring RecordMarker(const std::wstring& site) { return site + L"/freedb_search_fmt.php?cat="; }

std::optional<std::string_view> LinkScanner::Next() {
  const size_t found = page_.find(marker_, at_);
  if (found == page_.npos) return std::nullopt;
  at_ = found + marker_.size();
  if (end_ < at_) end_ = page_.find("</", at_);
  const std::string_view link = page_.substr(at_, end_ - at_);
  if (end_ == page_.npos || !allowance_.Take(link)) {
    at_ = page_.size();
    return std::nullopt;
  }
  return link;
}

std::optional<Hit> DecodeHit(std::string_view link) {
  constexpr std::string_view kId = "&id=", kSmallType = "<font size=-1>";
  Hit hit;
  if (const size_t id = link.find(kId); id != link.npos) {
    hit.category = link.substr(0, id);
    const size_t start = id + kId.size();
    if (const size_t quote = link.find('"', start); quote != link.npos) hit.discId = link.substr(start, quote - start);
  }
  if (const size_t bracket = link.find('>'); bracket != link.npos) hit.title = link.substr(bracket + 1);
  const bool otherVersion = hit.title.size() > kSmallType.size() && hit.title.starts_with(kSmallType);
  if (hit.category.empty() || hit.discId.empty() || hit.title.empty() || otherVersion) return std::nullopt;
  return hit;
}

}  // namespace tagrix
