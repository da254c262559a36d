// The FreeDB web site's keyword search and CDDB over HTTP as a source of discs.
#ifndef TAGRIX_FREEDB_FREEDB_SOURCE_H
#define TAGRIX_FREEDB_FREEDB_SOURCE_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "freedb/http_client.h"
#include "platform/code_page.h"
#include "sources/disc_source.h"

namespace tagrix {

// Its servers give no reasons: whatever goes wrong counts as nothing given, unless the user has cancelled.
class FreeDbSource : public DiscSource {
 public:
  FreeDbSource(HttpClient& http, CodePage& codePage, Settings& settings)
      : http_(http), codePage_(codePage), settings_(settings) {}

  SourceReply Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                     Progress& progress) override;
  SourceReply Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) override;

 private:
  HttpClient& http_;
  CodePage& codePage_;
  Settings& settings_;
};

}  // namespace tagrix

#endif
