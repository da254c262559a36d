// The FreeDB web site's keyword search: its address, and the hits on the page that it answers.
#ifndef TAGRIX_FREEDB_SEARCH_PAGE_H
#define TAGRIX_FREEDB_SEARCH_PAGE_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/settings.h"
#include "freedb/text_allowance.h"

namespace tagrix {

// The web site of the settings, with its scheme and without a slash at its end: "http://www.freedb.org".
std::wstring FreeDbSite(Settings& settings);

// The address that searches artists and titles for the words; each blank becomes "+", nothing else is escaped.
std::wstring SearchUrl(const std::wstring& site, std::wstring_view words);
// What the address of every link to a record begins with, up to its category.
std::wstring RecordMarker(const std::wstring& site);

// One album found; the texts are parts of the page, as its bytes.
struct Hit {
  std::string_view category, discId, title;  // "rock", "47013c08", "Artist / Title"
};

// Walks over what stands between each marker and the next "</", in page order. Linear in the page's length: where links
// are left open, so that their texts overlap, the walk ends once they hold more than the page and a mebibyte.
class LinkScanner {
 public:
  // `page` has to outlive the links.
  LinkScanner(std::string_view page, std::string marker) : page_(page), marker_(std::move(marker)), allowance_(page) {}
  std::optional<std::string_view> Next();

 private:
  std::string_view page_;
  std::string marker_;
  TextAllowance allowance_;
  std::size_t at_ = 0, end_ = 0;  // of the last link
};

// The hit of a link (`rock&id=47013c08">Artist / Title`). Nothing when the link is incomplete or set in small type,
// which marks further versions of a disc.
std::optional<Hit> DecodeHit(std::string_view link);

}  // namespace tagrix

#endif
