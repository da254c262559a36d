// What the playlist builder does: gathers files and writes them as a playlist.
#ifndef TAGRIX_TOOLS_PLAYLIST_PLS_MOD_H
#define TAGRIX_TOOLS_PLAYLIST_PLS_MOD_H

#include <string>
#include <vector>

#include "core/context.h"
#include "tools/playlist/pls_page.h"

namespace tagrix {

// Wires the events and sets the state at start.
void InitPlaylistPage(PlaylistPage& page, Context& context);

void AddPlaylistFiles(PlaylistPage& page, Context& context);
void AddPlaylistFolder(PlaylistPage& page, Context& context);
// Files and folders that were dropped on the page.
void DropOnPlaylist(PlaylistPage& page, Context& context, const std::vector<std::wstring>& paths);
void DeletePlaylistFiles(PlaylistPage& page, Context& context);
// Empties the list; the go button stays as it is.
void ResetPlaylist(PlaylistPage& page);
void ChoosePlaylistOutput(PlaylistPage& page, Context& context);

// Writes the playlist after asking whether an existing one may go. Once the user has agreed to that it is gone, even
// when writing is cancelled; only when writing fails it stays.
void WritePlaylist(PlaylistPage& page, Context& context);

// Enables the go button when there are a name, a file and a folder.
void UpdatePlaylistGo(PlaylistPage& page, Context& context);
void EnablePlaylistButtons(PlaylistPage& page, bool enabled);

}  // namespace tagrix

#endif
