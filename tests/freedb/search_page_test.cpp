#include "freedb/search_page.h"

#include <gtest/gtest.h>

#include "core/text.h"

namespace tagrix {
namespace {

const std::string kMarker = "http://www.freedb.org/freedb_search_fmt.php?cat=";

std::string Link(const std::string& rest) { return "<a href=\"" + kMarker + rest + "</a>\r\n"; }

std::vector<std::string> Hits(const std::string& page) {
  std::vector<std::string> hits;
  LinkScanner scanner(page, kMarker);
  while (const auto link = scanner.Next()) {
    const auto hit = DecodeHit(*link);
    if (hit)
      hits.push_back(std::string(hit->category) + "|" + std::string(hit->discId) + "|" + std::string(hit->title));
  }
  return hits;
}

TEST(SearchPage, IsAskedForWithThePlainWords) {
  EXPECT_EQ(SearchUrl(L"a  b&é"),
            L"http://www.freedb.org/freedb_search.php?words=a++b&é&allfields=NO&fields=artist&fields=title&allcats=YES"
            L"&grouping=none");
  EXPECT_EQ(RecordMarker(), Widen(kMarker));
}

TEST(SearchPage, HoldsHitsInPageOrderButIncompleteLinksAndSmallType) {
  EXPECT_EQ(Hits(Link("rock&id=1\" class=\"x\">a &amp; > b") + Link("rock&id=2>no quote") + Link("rock\">no id") +
                 Link("&id=3\">no category") + Link("rock&id=\">empty id") + Link("rock&id=4\">") +
                 Link("rock&id=5\"no bracket") + Link("rock&id=6\"><font size=-1>other version") +
                 Link("rock&id=7\"><font size=-1>") + Link("rock&id=8\"><FONT SIZE=-1>kept")),
            (std::vector<std::string>{"rock|1|a &amp; > b", "rock|7|<font size=-1>", "rock|8|<FONT SIZE=-1>kept"}));
  EXPECT_EQ(Hits("<a href=\"/freedb_search_fmt.php?cat=rock&id=1\">elsewhere</a>").size(), 0u);
}

// Would take hours, or all memory, if each link searched or copied the rest of the page.
TEST(SearchPage, MayBeHugeAndHostile) {
  const size_t many = 1'000'000;
  const std::string link = Link("a&id=1\">x"), start = kMarker + "a&id=1\">";
  std::string closed, open;
  for (size_t i = 0; i < many; ++i) {
    closed += link;
    open += start;
  }
  EXPECT_EQ(Hits(closed).size(), many);
  EXPECT_EQ(Hits(open).size(), 0u);
  EXPECT_EQ(Hits(open + "</").size(), 1u);
  EXPECT_EQ(Hits(kMarker + "a&id=1\">x" + kMarker + "b&id=2\">y</").size(), 2u);  // a few may overlap
}

}  // namespace
}  // namespace tagrix
