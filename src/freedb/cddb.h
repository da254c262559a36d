// Reading a disc record by CDDB over HTTP: the address of the request, and the record in its answer.
// Sources: the CDDB server protocol, level 5, and the xmcd record format.
#ifndef TAGRIX_FREEDB_CDDB_H
#define TAGRIX_FREEDB_CDDB_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings.h"

namespace tagrix {

// The address of "cddb read" for one disc, on the server and the gateway path of the settings, with the hello that
// names this program.
std::wstring CddbReadUrl(Settings& settings, std::wstring_view category, std::wstring_view discId);

struct DiscTrack {
  std::string title;
  std::int32_t frames = 0;  // length in CD frames (1/75 second); 0 when it could not be worked out
};

// The texts are the answer's bytes.
struct DiscRecord {
  std::string artist, album;
  std::optional<std::string> year;  // as written, may be empty; none when the record has no such line
  std::vector<DiscTrack> tracks;
};

// The record in an HTTP answer (headers included); nothing when the answer is anything but a complete reply 210.
std::optional<DiscRecord> ParseDiscRecord(std::string_view answer);

}  // namespace tagrix

#endif
