#include "freedb/search_page.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "freedb/freedb_source.h"

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

TEST(FreeDbSource, AsksTheSiteAndReadsBytesOfTheCodePage) {
  TestContext test;
  QuietProgress progress;
  std::string body;
  test.socket.serve = [&](const std::string&) { return "HTTP/1.0 200 OK\r\n\r\n" + body; };
  HttpClient http{{test.socket, test.events, test.codePage, test.context.settings}};
  FreeDbSource source{http, test.codePage, test.context.settings};
  std::vector<DiscHit> hits;
  const auto found = [&](std::vector<DiscHit> some) { hits = std::move(some); };
  const auto asked = [&] {
    return test.socket.requests.back().substr(0, test.socket.requests.back().find(" HTTP/1.0"));
  };

  body = Link("rock&id=1\">\xC9t\xE9 / B") + std::string(128 - Link("rock&id=1\">\xC9t\xE9 / B").size(), ' ');
  for (const bool any : {false, true}) {
    EXPECT_EQ(source.Search({L"a  b&\u00E9", any}, found, progress).answer, Answer::Given);
    EXPECT_EQ(asked(), std::string("GET http://www.freedb.org/freedb_search.php?words=") +
                           (any ? "a+OR++OR+b&\xE9" : "a++b&\xE9") +
                           "&allfields=NO&fields=artist&fields=title&allcats=YES&grouping=none");
    EXPECT_EQ(hits, (std::vector<DiscHit>{{L"\u00C9t\u00E9 / B", L"rock", L"1"}}));
    EXPECT_EQ(progress.texts.back(), L"Downloading : 0.14 Kb");  // counted anew
  }
  std::optional<Disc> disc;
  body = "401 No such CD entry in database.\r\n";
  EXPECT_EQ(source.Read({L"", L"jazz", L"3"}, disc, progress).answer, Answer::Given);
  EXPECT_FALSE(disc);
  body = "210 jazz 3\r\nDTITLE=Trio / Caf\xE9\r\nTTITLE0=t\r\n.\r\n";
  source.Read({L"", L"jazz", L"3"}, disc, progress);
  EXPECT_NE(asked().find("?cmd=cddb+read+jazz+3&"), std::string::npos);
  EXPECT_EQ(disc, (Disc{L"Trio ", L"Caf\u00E9", L"jazz", {}, {{L"t"}}}));
  EXPECT_EQ(test.socket.State(), SocketState::Closed);
  progress.cancelled = true;
  EXPECT_EQ(source.Search({L"words"}, found, progress).answer, Answer::Cancelled);
}

}  // namespace
}  // namespace tagrix
