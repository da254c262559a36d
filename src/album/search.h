// The album page's first step: searching a source of discs for albums.
#ifndef TAGRIX_ALBUM_SEARCH_H
#define TAGRIX_ALBUM_SEARCH_H

#include "album/album_page.h"
#include "sources/source_list.h"

namespace tagrix {

// "1 - Search": refuses without files, and leaves the program busy then; the next search ends that.
void GoClicked(AlbumPage& page, Context& context, const SourceList& sources);
// Searches again in the same source, one of the words being enough.
void MoreClicked(AlbumPage& page, Context& context, const SourceList& sources);

// Asks for the words and the source (or widens the last search) and lists what is found.
void SearchAlbums(AlbumPage& page, Context& context, const SourceList& sources, bool orMode);

}  // namespace tagrix

#endif
