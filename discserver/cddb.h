// The replies of the CDDB gateway. Sources: the CDDB server protocol, levels 1 to 6, and gnudb.org's description of its
// search.
#ifndef TAGRIX_DISCSERVER_CDDB_H
#define TAGRIX_DISCSERVER_CDDB_H

#include <string>
#include <string_view>

#include "discserver/store.h"

namespace discserver {

// A request's values, as they were sent but for their percent signs.
struct CddbRequest {
  std::string command, hello, protocol;  // "cddb read rock 47013c08"; user, host, client, version; "6"
  std::string artist, album;             // of the command "search"
  std::string site;                      // "host:port", by which the client has come here
};

struct CddbReply {
  std::string text;   // lines ended by CR LF
  bool utf8 = false;  // else ISO 8859-1
};

// Never fails but by the store: what isn't understood is answered so. No protocol level counts as 1.
CddbReply AnswerCddb(Store& store, const CddbRequest& request);

}  // namespace discserver

#endif
