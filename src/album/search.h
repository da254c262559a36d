// The album page's first step: searching the FreeDB web site for albums.
#ifndef TAGRIX_ALBUM_SEARCH_H
#define TAGRIX_ALBUM_SEARCH_H

#include "album/album_page.h"
#include "freedb/http_client.h"

namespace tagrix {

inline constexpr const wchar_t* kContacting = L"Contacting FreeDB servers....";

// "1 - Search": refuses without files, and leaves the program busy then; the next search ends that.
void GoClicked(AlbumPage& page, Context& context, HttpClient& http);
// Searches again with the words joined by "OR".
void MoreClicked(AlbumPage& page, Context& context, HttpClient& http);

// Asks for the words (or widens those of the last search), fetches the page of hits and lists them in `resalb_lst`,
// with their categories and disc ids at the same positions of `categ_lst` and `discid_lst`.
void SearchAlbums(AlbumPage& page, Context& context, HttpClient& http, bool orMode);

}  // namespace tagrix

#endif
