// How long the files of an album play, as far as that is known without being asked for.
#ifndef TAGRIX_SESSION_ALBUM_LENGTHS_H
#define TAGRIX_SESSION_ALBUM_LENGTHS_H

#include <functional>
#include <vector>

#include "base/progress.h"
#include "session/album_session.h"

namespace tagrix {

// Measures the album unless all of its files were measured already. What can't be measured or read is 0 afterwards;
// when the user cancels, what was unknown stays so. `told` hears the number of the file and how many there are.
void MeasureUnknown(AlbumSession& session, Files& files, Progress& progress,
                    const std::function<void(int file, int count)>& told = {});

// Like PlaceAt and PlacesOf, by the lengths that go with the files.
Place KnownPlaceAt(const AlbumSession& session, int i);
std::vector<Place> KnownPlacesOf(const AlbumSession& session);

}  // namespace tagrix

#endif
