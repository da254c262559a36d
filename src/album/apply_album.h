// The album page's third step, and the way back from it: what the user is told meanwhile.
#ifndef TAGRIX_ALBUM_APPLY_ALBUM_H
#define TAGRIX_ALBUM_APPLY_ALBUM_H

#include "album/album_page.h"

namespace tagrix {

// "3 - Apply": writes tags, renames the files and writes the playlist, as the options say.
void ApplyClicked(AlbumPage& page, Context& context);

// Gives the files renamed by the last Apply their former names back. What failed can be tried again.
void UndoClicked(AlbumPage& page, Context& context);

}  // namespace tagrix

#endif
