// Which of the album page's controls does what.
#ifndef TAGRIX_ALBUM_ALBUM_MOD_H
#define TAGRIX_ALBUM_ALBUM_MOD_H

#include "album/album_page.h"
#include "core/context.h"

namespace tagrix {

// Wires the events and sets the state at start.
void InitAlbumPage(AlbumPage& page, Context& context);

// Whether the program may end. Asks, once, when an album was prepared and never applied.
bool MayLeaveAlbum(AlbumPage& page, Context& context);

}  // namespace tagrix

#endif
