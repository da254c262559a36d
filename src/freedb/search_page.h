// The FreeDB web site's keyword search: its address, and the hits on the page that it answers.
#ifndef TAGRIX_FREEDB_SEARCH_PAGE_H
#define TAGRIX_FREEDB_SEARCH_PAGE_H

#include <string>
#include <string_view>
#include <vector>

namespace tagrix {

// The address that searches artists and titles for the words; each blank becomes "+", nothing else is escaped.
std::wstring SearchUrl(std::wstring_view words);
// What the address of every link to a record begins with, up to its category.
std::wstring RecordMarker();

// One album found; the texts are parts of the page, as its bytes.
struct Hit {
  std::string_view category, discId, title;  // "rock", "47013c08", "Artist / Title"
};

// What stands between each marker and the next "</", in page order. Linear in the page's length: where links are left
// open, so that their texts overlap, the scan ends once they hold more than the page and a mebibyte.
std::vector<std::string_view> ScanLinks(std::string_view page, std::string_view marker);

// The hits among the links (`rock&id=47013c08">Artist / Title`): those that are complete and not set in small type,
// which marks further versions of a disc. Nothing is sorted or removed as a duplicate.
std::vector<Hit> DecodeHits(const std::vector<std::string_view>& links);

}  // namespace tagrix

#endif
