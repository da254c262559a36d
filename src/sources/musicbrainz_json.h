// What MusicBrainz's web service answers: releases with their media, or a refusal.
// Source: the documents "MusicBrainz API" and "MusicBrainz API / Search" of the service, version 2, in JSON.
#ifndef TAGRIX_SOURCES_MUSICBRAINZ_JSON_H
#define TAGRIX_SOURCES_MUSICBRAINZ_JSON_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tagrix::musicbrainz {

// Texts are empty and numbers 0 where the service doesn't say.
struct Track {
  std::wstring title, artist;
  std::int64_t length = 0, recordingLength = 0;  // milliseconds
};

struct Medium {
  std::wstring format;  // "CD", "12\" Vinyl", ...
  std::int64_t position = 0, trackCount = 0;
  std::vector<Track> tracks;  // only those of the album: no data and no pregap tracks
};

struct Release {
  std::wstring id, title, artist, country, genre;
  std::wstring date;  // "1998", "1998-05" or "1998-05-04"
  std::int64_t genreVotes = 0;
  std::vector<Medium> media;
};

struct Reply {
  std::optional<std::vector<Release>> found;  // by a search
  Release release;                            // that was looked up
  std::wstring error;                         // why there is neither, in the server's words
};

// Nothing when the text is no JSON, or nothing that the service would say: nested far deeper, with endless titles or
// hundreds of thousands of tracks. Each time after some 64 KiB `goOn` is asked, and may end the reading.
std::optional<Reply> ParseReply(std::string_view json, const std::function<bool()>& goOn);

}  // namespace tagrix::musicbrainz

#endif
