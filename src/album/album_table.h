// The table of the album page: each file beside the track that it is to become, how they fit, and the new name.
#ifndef TAGRIX_ALBUM_ALBUM_TABLE_H
#define TAGRIX_ALBUM_ALBUM_TABLE_H

#include "album/album_page.h"

namespace tagrix {

// Wires what the table shows and does: `mp3_lst` is the table, `tracks_lst` its column of tracks.
void InitAlbumTable(AlbumPage& page, Context& context);
// Sets the captions of its columns.
void TranslateAlbumTable(AlbumPage& page, Context& context);

// Brings the table up to date with the session. What an earlier Apply did is forgotten.
void ShowTable(AlbumPage& page);
// Likewise, when the rows are the same and only what they are to be called has changed.
void RefreshTable(AlbumPage& page);

// The disc's fields as they stand in the text boxes, where they can be corrected by hand.
void TakeFields(AlbumPage& page);

// Measures the files whose length isn't known yet and shows how they fit.
void MeasureLengths(AlbumPage& page, Context& context, Progress& progress);

}  // namespace tagrix

#endif
