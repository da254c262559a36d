// The file list of the album page: reading a folder, and bringing its files into the order of the disc's tracks.
#ifndef TAGRIX_ALBUM_FILE_LIST_H
#define TAGRIX_ALBUM_FILE_LIST_H

#include "album/album_page.h"

namespace tagrix {

// Lets the user choose a folder and lists its files of the chosen type; the session starts over, unless the user
// cancels or the folder can't be read.
void BrowseClicked(AlbumPage& page, Context& context);
// Reads the album's folder again; what belongs to the files that are still there stays.
void ReloadAlbum(AlbumPage& page, Context& context);

// Opens a folder as an album, or the folder of a file: as files of that file's type, or of the first type that the
// folder has any of.
void OpenAlbum(AlbumPage& page, Context& context, const std::wstring& path);

// Moves the one selected entry a place up or down.
void MoveUp(AlbumPage& page);
void MoveDown(AlbumPage& page);
// The user drags the entry at `from` over the one at `to`.
void DragEntry(AlbumPage& page, int from, int to);

// Takes the selected entries off the list; the files stay on the disk.
void DeleteSelected(AlbumPage& page);
void ClearFiles(AlbumPage& page);
// Appends stand-ins for tracks without a file.
void AddFakes(AlbumPage& page, int count);

// Opens Auto Sort when the list has no fake entry and as many entries as the disc has tracks; otherwise says so. Does
// nothing without files.
void AutoSortClicked(AlbumPage& page, Context& context);

// Enables the buttons that depend on what the list holds and what is selected.
void UpdateFileButtons(AlbumPage& page);

// Empties the disc record: artist, album, genre, year and tracks.
void InitResFrm(AlbumPage& page);

}  // namespace tagrix

#endif
