// MusicBrainz's web service as a source of discs.
// Source: the documents "MusicBrainz API", "MusicBrainz API / Search" and "MusicBrainz API / Rate Limiting" of the
// service, version 2.
#ifndef TAGRIX_SOURCES_MUSICBRAINZ_H
#define TAGRIX_SOURCES_MUSICBRAINZ_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "platform/event_loop.h"
#include "platform/secure_http.h"
#include "sources/disc_source.h"
#include "sources/musicbrainz_json.h"

namespace tagrix {

// Asks the server of the settings at most once a second. A hit is one medium of a release: its category is the medium's
// number there, counted from 1, its id the release's. Throws Failure when the proxy's port in the settings is above
// 32767.
class MusicBrainzSource : public DiscSource {
 public:
  struct Ports {
    HttpsClient& https;
    EventLoop& events;
    Settings& settings;
  };
  explicit MusicBrainzSource(const Ports& ports) : ports_(ports) {}

  SourceReply Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                     Progress& progress) override;
  SourceReply Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) override;

 private:
  // Asks for a path of the web service. Given: `reply` is what it says.
  SourceReply Ask(const std::wstring& path, musicbrainz::Reply& reply, Progress& progress);
  // The answer to one request; none when the user has cancelled.
  std::optional<HttpsAnswer> Get(const std::wstring& path, Progress& progress);
  // Lets events run until `done` says so; false when the user has cancelled.
  bool RunUntil(const std::function<bool()>& done, Progress& progress);

  const Ports ports_;
  std::uint64_t next_ = 0;  // tick count before which the server is left in peace
};

namespace musicbrainz {

// The words as the search understands them: each of them, or any, in the release's title or its artist's name. Empty
// when there is none.
// Source: the query syntax of Apache Lucene's classic query parser.
std::wstring ReleaseQuery(const std::wstring& words, bool any);

// "Artist / Album (1998, DE, CD 2 of 3, 14 tracks)", one for each medium.
std::vector<DiscHit> HitsOf(const Release& release);

// The medium of that number as a disc; none when the release lacks it.
std::optional<Disc> DiscOf(const Release& release, std::int64_t number);

}  // namespace musicbrainz

}  // namespace tagrix

#endif
