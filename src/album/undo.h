// Gives the files renamed by the last Apply their former names back.
#ifndef TAGRIX_ALBUM_UNDO_H
#define TAGRIX_ALBUM_UNDO_H

#include "album/album_page.h"

namespace tagrix {

// The file at position i gets the name recorded at position i of the journal, whatever has been moved since. Tags and
// playlist stay as they are.
void UndoClicked(AlbumPage& page, Context& context);

}  // namespace tagrix

#endif
