// The page that the keyword search answers.
#include "freedb/search_page.h"

#include <cassert>
#include <cstdint>

#include "base/text.h"

namespace tagrix {
namespace {

bool Within(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view page(reinterpret_cast<const char*>(data), size);
  const std::wstring wide = RecordMarker(publisher::kFreeDbWebSite);
  const std::string marker(wide.begin(), wide.end());
  LinkScanner scanner(page, marker);
  std::size_t links = 0, texts = 0;
  for (; const auto link = scanner.Next(); ++links) {
    assert(Within(*link, page) && std::string_view(link->end(), page.end()).starts_with("</"));
    texts += link->size();
    const auto hit = DecodeHit(*link);
    if (!hit) continue;
    assert(Within(hit->category, *link) && Within(hit->discId, *link) && Within(hit->title, *link));
    assert(!hit->category.empty() && !hit->discId.empty() && !hit->title.empty());
  }
  assert(links * marker.size() <= size && texts <= size + (1 << 20));
  return 0;
}

}  // namespace tagrix
