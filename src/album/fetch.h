// The album page's second step: retrieving the record of the album chosen.
#ifndef TAGRIX_ALBUM_FETCH_H
#define TAGRIX_ALBUM_FETCH_H

#include "album/album_page.h"
#include "freedb/http_client.h"

namespace tagrix {

// "2- Retrieve details", also by a double click on the album: fills the page's disc record and offers to add fake
// tracks for files that are missing. Without a selection nothing happens.
void FetchAlbum(AlbumPage& page, Context& context, HttpClient& http);

}  // namespace tagrix

#endif
