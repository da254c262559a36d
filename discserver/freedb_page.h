// The web page of a keyword search.
#ifndef TAGRIX_DISCSERVER_FREEDB_PAGE_H
#define TAGRIX_DISCSERVER_FREEDB_PAGE_H

#include <string>
#include <string_view>

#include "discserver/store.h"

namespace discserver {

// An HTML page in ISO 8859-1 with a link to each disc found; links begin with the web site's address ("http://host").
// Another version of a disc already listed is set in small type. `words` as they were sent, in either encoding.
std::string SearchPage(Store& store, std::string_view webSite, std::string_view words);

}  // namespace discserver

#endif
