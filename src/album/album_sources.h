// Owns the sources of discs that the album page offers.
#ifndef TAGRIX_ALBUM_ALBUM_SOURCES_H
#define TAGRIX_ALBUM_ALBUM_SOURCES_H

#include "core/context.h"
#include "freedb/freedb_source.h"
#include "freedb/gnudb.h"
#include "freedb/http_client.h"
#include "sources/musicbrainz.h"
#include "sources/source_list.h"

namespace tagrix {

// Those that speak plain HTTP share one client, and with it the socket.
class AlbumSources {
 public:
  explicit AlbumSources(Context& context)
      : http_({context.socket, context.events, context.codePage, context.settings}),
        musicBrainz_({context.https, context.events, context.settings}),
        gnudb_(http_, context.codePage, context.settings),
        freeDb_(http_, context.codePage, context.settings),
        list_{{L"MusicBrainz", musicBrainz_}, {L"gnudb", gnudb_}, {kFreeDbName, freeDb_}} {}

  // In the order in which they are offered.
  const SourceList& List() const { return list_; }

 private:
  HttpClient http_;
  MusicBrainzSource musicBrainz_;
  GnudbSource gnudb_;
  FreeDbSource freeDb_;
  const SourceList list_;
};

}  // namespace tagrix

#endif
