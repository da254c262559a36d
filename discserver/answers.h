// What the server answers: the keyword search's page and the replies of the CDDB gateway.
#ifndef TAGRIX_DISCSERVER_ANSWERS_H
#define TAGRIX_DISCSERVER_ANSWERS_H

#include <string>
#include <string_view>
#include <vector>

#include "record_store.h"

namespace discserver {

// An HTML page with a link to each record found; links begin with the web site's address ("http://host"). Another
// version of a disc already listed is set in small type.
std::string SearchPage(const std::vector<Record>& records, std::string_view webSite, std::string_view words);

// The reply to a CDDB command as the HTTP gateway gives it, lines ended by CR LF. Knows "cddb read CATEGORY DISCID";
// `hello` has to name user, host, client and version. Source: the CDDB server protocol, level 5.
std::string CddbReply(const std::vector<Record>& records, std::string_view command, std::string_view hello);

}  // namespace discserver

#endif
