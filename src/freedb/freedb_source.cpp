#include "freedb/freedb_source.h"

#include <utility>

#include "base/text.h"
#include "freedb/cddb.h"
#include "freedb/search_page.h"

namespace tagrix {

namespace {

SourceReply Given(const Progress& progress) { return {progress.Cancelled() ? Answer::Cancelled : Answer::Given}; }

}  // namespace

SourceReply FreeDbSource::Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                                 Progress& progress) {
  constexpr int kBatch = 4096;  // links between two looks at the events: a page may hold a million
  http_.ResetReceivedCount();
  const std::wstring site = FreeDbSite(settings_);
  std::wstring url = SearchUrl(site, query.any ? Replace(query.words, L" ", L" OR ") : query.words);
  const std::string page = http_.GetWebSite(url, progress);
  LinkScanner scanner(page, codePage_.ToBytes(RecordMarker(site)));
  const auto text = [&](std::string_view bytes) { return codePage_.ToText(bytes); };
  auto link = scanner.Next();
  while (link && !progress.Cancelled()) {
    std::vector<DiscHit> hits;
    for (int i = 0; i < kBatch && link; ++i, link = scanner.Next()) {
      if (const auto hit = DecodeHit(*link)) hits.push_back({text(hit->title), text(hit->category), text(hit->discId)});
    }
    found(std::move(hits));
    if (link) progress.LetEventsRun();
  }
  http_.ErrorOccured();
  return Given(progress);
}

SourceReply FreeDbSource::Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) {
  std::wstring url = CddbReadUrl(settings_, hit.category, hit.id);
  const auto record = ParseDiscRecord(http_.GetWebSite(url, progress));
  http_.ErrorOccured();
  if (record) disc = DiscOf(*record, hit.category, [&](std::string_view bytes) { return codePage_.ToText(bytes); });
  return Given(progress);
}

}  // namespace tagrix
