// Reading a disc record by CDDB over HTTP: the address of the request, and the record in its answer.
// Sources: the CDDB server protocol, level 5, and the xmcd record format.
#ifndef TAGRIX_FREEDB_CDDB_H
#define TAGRIX_FREEDB_CDDB_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings.h"
#include "sources/disc_source.h"

namespace tagrix {

// The address of the gateway, without a query, on the server and the gateway path of the settings.
std::wstring CddbGateway(Settings& settings);

// Who asks: user, host, client and the program's version, with blanks between them.
std::wstring CddbHello(std::wstring_view user, std::wstring_view host, std::wstring_view client);
inline constexpr const wchar_t* kCddbUser = L"Orvin";  // named by all who don't say who they are

// The address of "cddb read" for one disc, on the server and the gateway path of the settings, with the hello that
// names this program.
std::wstring CddbReadUrl(Settings& settings, std::wstring_view category, std::wstring_view discId);

struct CddbTrack {
  std::string title;
  std::int32_t frames = 0;  // length in CD frames (1/75 second); 0 when it could not be worked out
};

// The texts are the answer's bytes.
struct CddbRecord {
  std::string title;  // as written, "Artist / Album"
  std::string artist, album;
  std::optional<std::string> year;  // as written, may be empty; none when the record has no such line
  std::vector<CddbTrack> tracks;
};

// The record in an HTTP answer (headers included); nothing when the answer is anything but a complete reply 210.
std::optional<CddbRecord> ParseDiscRecord(std::string_view answer);

// The disc of a record, its category being the genre.
Disc DiscOf(const CddbRecord& record, const std::wstring& category,
            const std::function<std::wstring(std::string_view)>& text);

}  // namespace tagrix

#endif
