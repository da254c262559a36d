// MusicBrainz's search for releases and its look-up of one, over the disc records: each disc is a release of one
// medium. Source: the documentation of the MusicBrainz web service, version 2, and of its JSON format.
#ifndef TAGRIX_DISCSERVER_MUSICBRAINZ_H
#define TAGRIX_DISCSERVER_MUSICBRAINZ_H

#include <optional>
#include <string>
#include <string_view>

#include "discserver/store.h"

namespace discserver {

// The releases that a Lucene query finds, at most `limit` and at most 100, as JSON. `query` as it was sent. Throws
// QueryError when the query isn't understood.
std::string FindReleases(Store& store, std::string_view query, std::size_t limit);

// The release with its tracks, artist credits and genres, as JSON; nothing when there is none with this id.
std::optional<std::string> Release(Store& store, std::string_view releaseId);

// Always the same for the same disc: a UUID that begins with the disc's id.
std::string ReleaseId(const Disc& disc);

// What went wrong, as the service's own JSON.
std::string ErrorJson(std::string_view error);

}  // namespace discserver

#endif
