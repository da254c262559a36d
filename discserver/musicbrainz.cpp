#include "discserver/musicbrainz.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "discserver/lucene.h"
#include "discserver/text.h"
#include "discserver/xmcd.h"

namespace discserver {
namespace {

using Json = nlohmann::ordered_json;

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

// FNV-1a, 64 bits.
std::uint64_t Hash(std::string_view text, std::uint64_t seed) {
  std::uint64_t hash = 0xCBF29CE484222325U ^ seed;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  return hash;
}

// A UUID of version 8, whose bits are the maker's own, with these eight digits at its front. Source: RFC 9562.
std::string Uuid(std::string_view front, std::string_view name) {
  const std::uint64_t a = Hash(name, 0), b = Hash(name, 1);
  char rest[29];
  std::snprintf(rest, sizeof rest, "-%04x-8%03x-%04x-%012llx", static_cast<unsigned>(a & 0xFFFF),
                static_cast<unsigned>(a >> 16 & 0xFFF), static_cast<unsigned>((a >> 28 & 0x3FFF) | 0x8000),
                static_cast<unsigned long long>(b & 0xFFFFFFFFFFFFU));
  return std::string(front) + rest;
}

std::string UuidOf(const std::string& kind, const std::string& name) {
  char front[9];
  std::snprintf(front, sizeof front, "%08x", static_cast<unsigned>(Hash(name, 2) & 0xFFFFFFFFU));
  return Uuid(front, kind + " " + name);
}

Json ArtistCredit(const std::string& credit) {
  constexpr std::string_view kJoin = " feat. ";
  Json names = Json::array();
  for (std::string_view rest = credit; !rest.empty();) {
    const std::size_t at = std::min(rest.find(kJoin, 1), rest.size());
    const std::string name(rest.substr(0, at));
    const bool last = at == rest.size();
    rest.remove_prefix(last ? at : at + kJoin.size());
    names.push_back(
        {{"name", name},
         {"joinphrase", last ? "" : kJoin},
         {"artist", {{"id", UuidOf("artist", name)}, {"name", name}, {"sort-name", name}, {"disambiguation", ""}}}});
  }
  return names;
}

// The record's own genre counts for more than its category, which had to be one of a few.
Json Genres(const Disc& disc, const std::string& record) {
  const std::string genre = Lower(Value(record, "DGENRE="));
  Json genres = Json::array();
  const auto add = [&genres](const std::string& name, int count) {
    genres.push_back({{"id", UuidOf("genre", name)}, {"name", name}, {"count", count}, {"disambiguation", ""}});
  };
  if (!genre.empty()) add(genre, 2);
  if (disc.category != genre && disc.category != "misc" && disc.category != "data") add(disc.category, 1);
  return genres;
}

// On a sampler tracks are titled "Artist / Title".
ArtistAndTitle TrackCredit(const std::string& discArtist, const std::string& title) {
  const bool sampler = Lower(discArtist).starts_with("various");
  return sampler && title.find(" / ") != title.npos ? SplitTitle(title) : ArtistAndTitle{discArtist, title};
}

Json Medium(const Disc& disc, const std::string& artist, const std::vector<Track>& tracks) {
  Json list = Json::array();
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    const auto [trackArtist, title] = TrackCredit(artist, tracks[i].title);
    const Json length = tracks[i].milliseconds > 0 ? Json(tracks[i].milliseconds) : Json();
    const Json credit = ArtistCredit(trackArtist);
    const std::string name = disc.category + " " + disc.id + " " + number;
    list.push_back({{"id", UuidOf("track", name)},
                    {"position", i + 1},
                    {"number", number},
                    {"title", title},
                    {"length", length},
                    {"artist-credit", credit},
                    {"recording",
                     {{"id", UuidOf("recording", name)},
                      {"title", title},
                      {"length", length},
                      {"video", false},
                      {"disambiguation", ""},
                      {"artist-credit", credit}}}});
  }
  return {{"position", 1},     {"title", ""},   {"format", "CD"}, {"track-count", tracks.size()},
          {"track-offset", 0}, {"tracks", list}};
}

// Texts are valid UTF-8; were one not, the reply would rather show it wrong than fail.
std::string Dump(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

}  // namespace

std::string ReleaseId(const Disc& disc) { return Uuid(disc.id, disc.category + " " + disc.id); }

std::string FindReleases(Store& store, std::string_view query, std::size_t limit) {
  constexpr std::size_t kMostReleases = 100;
  Json releases = Json::array();
  for (const auto& [disc, record, score] :
       Search(store, ParseLucene(ToUtf8(std::string(query))), std::min(limit, kMostReleases))) {
    const auto [artist, title] = SplitTitle(disc.title);
    const std::size_t tracks = Tracks(record).size();
    Json release = {{"id", ReleaseId(disc)}, {"score", score},       {"count", 1},
                    {"title", title},        {"status", "Official"}, {"artist-credit", ArtistCredit(artist)}};
    if (const std::string year = Value(record, "DYEAR="); !year.empty()) release["date"] = year;
    release["track-count"] = tracks;
    release["media"] = Json::array({{{"format", "CD"}, {"disc-count", 1}, {"track-count", tracks}}});
    releases.push_back(std::move(release));
  }
  const std::size_t count = releases.size();
  return Dump({{"count", count}, {"offset", 0}, {"releases", std::move(releases)}});
}

std::optional<std::string> Release(Store& store, std::string_view releaseId) {
  const std::string id = Lower(std::string(releaseId));
  for (const Disc& disc : store.WithId(id.substr(0, 8))) {
    if (ReleaseId(disc) != id) continue;
    const auto record = store.Find(disc.category, disc.id);
    if (!record) return std::nullopt;
    const auto [artist, title] = SplitTitle(disc.title);
    return Dump({{"id", id},
                 {"title", title},
                 {"status", "Official"},
                 {"quality", "normal"},
                 {"disambiguation", ""},
                 {"packaging", nullptr},
                 {"barcode", nullptr},
                 {"asin", nullptr},
                 {"date", Value(record->text, "DYEAR=")},
                 {"country", nullptr},  // the records don't tell
                 {"artist-credit", ArtistCredit(artist)},
                 {"genres", Genres(disc, record->text)},
                 {"media", Json::array({Medium(disc, artist, Tracks(record->text))})}});
  }
  return std::nullopt;
}

std::string ErrorJson(std::string_view error) {
  return Dump({{"error", error}, {"help", "For usage, please see: https://musicbrainz.org/development/mmd"}});
}

}  // namespace discserver
