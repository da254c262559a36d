// The album page's second step: retrieving the record of the album chosen.
#ifndef TAGRIX_ALBUM_FETCH_H
#define TAGRIX_ALBUM_FETCH_H

#include "album/album_page.h"
#include "sources/source_list.h"

namespace tagrix {

// "2- Retrieve details", also by a double click on the album: fills the disc record from the source that found it and
// offers to add fake tracks for files that are missing. Without a selection nothing happens.
void FetchAlbum(AlbumPage& page, Context& context, const SourceList& sources);

// Lets the user correct the title of the selected track.
void EditTrack(AlbumPage& page, Context& context);

}  // namespace tagrix

#endif
