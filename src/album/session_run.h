// What Apply and Undo share: the page is closed to the user while they run, and how they rename.
#ifndef TAGRIX_ALBUM_SESSION_RUN_H
#define TAGRIX_ALBUM_SESSION_RUN_H

#include <string>

#include "album/album_page.h"

namespace tagrix {

// A cancellable walk over the file list: from its construction to its end the program is busy and the page disabled.
class SessionRun {
 public:
  SessionRun(AlbumPage& page, Context& context);
  ~SessionRun();
  SessionRun(const SessionRun&) = delete;
  SessionRun& operator=(const SessionRun&) = delete;

  // Says which entry comes next and lets pending events run. False when the user has cancelled.
  bool Next(int entry, std::wstring status);

 private:
  AlbumPage& page_;
  Context& context_;
};

// The path of the list's entry.
std::wstring EntryPath(const AlbumPage& page, const std::wstring& name);

// Gives an entry's file another name, never over another file. When one of that name is in the way, `clash` is shown,
// otherwise the usual message about a failed renaming. On success the entry shows the name as the file system reports
// it.
void RenameEntry(AlbumPage& page, Context& context, int entry, const std::wstring& name, const std::wstring& clash);

}  // namespace tagrix

#endif
