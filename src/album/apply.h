// The album page's third step: tags, names and the playlist of the album.
#ifndef TAGRIX_ALBUM_APPLY_H
#define TAGRIX_ALBUM_APPLY_H

#include <string>

#include "album/album_page.h"

namespace tagrix {

// Writes tags, renames the files and writes the playlist, as the options say. A file that is read-only, can't be tagged
// or whose new name is taken is reported and does not stop the others. Records the former names for Undo first.
void ApplyClicked(AlbumPage& page, Context& context);

// The patterns that Apply uses: those of the settings, or the defaults.
std::wstring RenamePattern(Context& context);
std::wstring PlaylistPattern(Context& context);

}  // namespace tagrix

#endif
