// gnudb's keyword search and CDDB over HTTP as a source of discs, both in UTF-8.
// Sources: the CDDB server protocol, level 6, and gnudb's description of its command "search".
#ifndef TAGRIX_FREEDB_GNUDB_H
#define TAGRIX_FREEDB_GNUDB_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings.h"
#include "freedb/http_client.h"
#include "platform/code_page.h"
#include "sources/disc_source.h"

namespace tagrix {

// Asks the server and the gateway path of the settings. Texts that are no UTF-8 are read in the code page.
class GnudbSource : public DiscSource {
 public:
  GnudbSource(HttpClient& http, CodePage& codePage, Settings& settings)
      : http_(http), codePage_(codePage), settings_(settings) {}

  // Words with " - " between them are artist and album; any others are sought as both. With `any` the album needs to
  // fit on one side only: asks for the artist alone, then for the album alone.
  SourceReply Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                     Progress& progress) override;
  SourceReply Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) override;

 private:
  using Found = std::function<void(std::vector<DiscHit>)>;

  // Sends a command with its parameters, which stand as they do in an address. `answer`: what comes back.
  SourceReply Ask(const std::wstring& command, std::string& answer, Progress& progress);
  SourceReply SearchFor(std::wstring_view artist, std::wstring_view album, const Found& found, Progress& progress);
  // The user's contact address, if any, makes the hello personal.
  std::wstring Hello();

  std::wstring Text(std::string_view bytes) const;
  std::optional<DiscHit> HitOf(std::string_view line) const;
  SourceReply Refused(std::string_view answer) const;

  HttpClient& http_;
  CodePage& codePage_;
  Settings& settings_;
};

}  // namespace tagrix

#endif
