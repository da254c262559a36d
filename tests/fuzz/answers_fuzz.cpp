// What servers answer: search pages, disc records, redirects.
#include <gtest/gtest.h>

#include "core/text.h"
#include "freedb/cddb.h"
#include "freedb/http_message.h"
#include "freedb/search_page.h"
#include "fuzz/mutations.h"

namespace tagrix {
namespace {

bool Within(std::string_view part, std::string_view whole) {
  return part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size();
}

TEST(Fuzz, SearchPage) {
  const std::wstring wide = RecordMarker();
  const std::string marker(wide.begin(), wide.end());
  Fuzz("search", 20000, [&](const std::string& page) {
    LinkScanner scanner(page, marker);
    std::size_t links = 0;
    for (; const auto link = scanner.Next(); ++links) {
      EXPECT_TRUE(Within(*link, page));
      const auto hit = DecodeHit(*link);
      if (!hit) continue;
      EXPECT_TRUE(Within(hit->category, *link) && Within(hit->discId, *link) && Within(hit->title, *link));
      EXPECT_FALSE(hit->category.empty() || hit->discId.empty() || hit->title.empty());
    }
    EXPECT_LE(links * marker.size(), page.size());
  });
}

TEST(Fuzz, DiscRecord) {
  Fuzz("cddb", 20000, [](const std::string& answer) {
    const auto disc = ParseDiscRecord(answer);
    if (!disc) return;
    EXPECT_NE(answer.find("210"), answer.npos);
    std::size_t texts = disc->artist.size() + disc->album.size();
    for (const DiscTrack& track : disc->tracks) texts += track.title.size();
    EXPECT_LE(texts, 2 * answer.size() + (1 << 20));
  });
}

TEST(Fuzz, HttpAnswer) {
  Fuzz("cddb", 20000, [](const std::string& answer) {
    JudgeAnswer(answer);
    const auto target = RedirectTarget(answer);
    if (!target) return;
    EXPECT_TRUE(Within(*target, answer));
    std::wstring url = Widen(*target);
    if (const auto host = PrepareUrl(url)) {
      // Nothing of an address may end the request line early.
      const std::wstring request = HttpRequest(url, *host);
      EXPECT_EQ(request.find(L"\r\n"), request.find_first_of(L"\r\n"));
    }
  });
}

}  // namespace
}  // namespace tagrix
