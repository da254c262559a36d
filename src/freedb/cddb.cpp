#include "freedb/cddb.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/publisher.h"
#include "base/text.h"
#include "base/times.h"
#include "freedb/server_list.h"
#include "freedb/text_allowance.h"

namespace tagrix {
namespace {

constexpr std::string_view kLineEnd = "\r\n", kBlankLine = "\r\n\r\n";

// What follows the first blank line, itself without blank lines: the lines around one are glued together.
std::optional<std::string> RecordText(std::string_view answer) {
  const size_t headers = answer.find(kBlankLine);
  if (headers == answer.npos) return std::nullopt;
  std::string_view body = answer.substr(headers + kBlankLine.size());
  if (!body.starts_with("210") || body.find(kBlankLine) < 4 || body.size() < 4) return std::nullopt;
  std::string text;
  for (size_t end = 0; end != body.npos;) {
    end = body.find(kBlankLine);
    text += body.substr(0, end);
    if (end != body.npos) body.remove_prefix(end + kBlankLine.size());
  }
  return text;
}

// The rest of the line after the first `key`; nothing when there is no such key or no line end after it.
std::optional<std::string_view> Value(std::string_view record, std::string_view key) {
  const size_t at = record.find(key);
  if (at == record.npos) return std::nullopt;
  const size_t start = at + key.size();
  const size_t end = record.find(kLineEnd, start);
  if (end == record.npos) return std::nullopt;
  return record.substr(start, end - start);
}

void ReadArtistAndAlbum(std::string_view title, CddbRecord& disc) {
  const size_t slash = title.find('/');
  disc.title = title;
  disc.artist = title.substr(0, slash);
  // The character after the slash is usually a blank.
  disc.album = slash == title.npos ? title : title.substr(std::min(slash + 2, title.size()));
}

// Where the value of the first "TITLEn=" begins, for every n from 0 up to the first that is missing.
std::vector<size_t> FindTitles(std::string_view record) {
  constexpr std::string_view kTitle = "TITLE";
  std::vector<std::pair<size_t, size_t>> found;  // number, where the value begins
  for (size_t at = record.find(kTitle); at != record.npos; at = record.find(kTitle, at)) {
    at += kTitle.size();
    size_t number = 0;
    const char* first = record.data() + at;
    const char* last = record.data() + record.size();
    const auto [end, error] = std::from_chars(first, last, number);
    const bool plain = error == std::errc() && (*first != '0' || end == first + 1);
    if (plain && end != last && *end == '=') found.emplace_back(number, end + 1 - record.data());
  }
  std::vector<size_t> starts(found.size(), record.npos);
  for (const auto& [number, start] : found) {
    if (number < starts.size()) starts[number] = std::min(starts[number], start);
  }
  starts.erase(std::find(starts.begin(), starts.end(), record.npos), starts.end());
  return starts;
}

void ReadTitles(std::string_view record, CddbRecord& disc) {
  TextAllowance allowance(record);
  for (const size_t start : FindTitles(record)) {
    const std::string_view title = record.substr(start, record.find(kLineEnd, start) - start);
    if (!allowance.Take(title)) return;
    disc.tracks.push_back({std::string(title)});
  }
}

double Number(std::string_view text) { return LeadingNumber(Trim(Widen(text))); }

// A track's length is the difference to the next one's offset. Returns the last track's offset when all were there.
std::optional<double> ReadOffsets(std::string_view record, CddbRecord& disc) {
  size_t end = record.find("# Track frame offsets:");
  if (end != record.npos) end = record.find(kLineEnd, end);
  double offset = 0;
  for (size_t number = 0; number < disc.tracks.size(); ++number) {
    if (end == record.npos) return std::nullopt;
    const size_t start = record.find('#', end);
    end = start == record.npos ? start : record.find(kLineEnd, start);
    if (end == record.npos || end - start <= 1) continue;
    const double next = RoundToInteger(Number(record.substr(start + 1, end - start - 1)));
    if (number > 0) disc.tracks[number - 1].frames = RoundToInteger(next - offset);
    offset = next;
  }
  return offset;
}

// The last track runs to the end of the disc.
void ReadLastLength(std::string_view record, double lastOffset, CddbRecord& disc) {
  constexpr size_t kUnit = std::string_view("seconds").size();
  const auto length = Value(record, "# Disc length:");
  if (disc.tracks.empty() || !length || length->size() <= kUnit) return;
  const double seconds = Number(length->substr(0, length->size() - kUnit));
  disc.tracks.back().frames = RoundToInteger(seconds * kFramesPerSecond - lastOffset);
}

}  // namespace

std::wstring CddbGateway(Settings& settings) {
  std::wstring server = Trim(settings.Get(setting::kFreeDbServer));
  if (server.empty() || FreeDbServerList(false).find(server) == std::wstring::npos) {
    server = publisher::kFreeDbServers[0].host;
  }
  return L"http://" + server + settings.Get(setting::kCgiPath);
}

std::wstring CddbHello(std::wstring_view user, std::wstring_view host, std::wstring_view client) {
  std::wstring hello(user);
  hello.append(L" ").append(host).append(L" ").append(client).append(L" ");
  return hello + std::to_wstring(publisher::kMajor) + L"." + std::to_wstring(publisher::kMinor) + L"." +
         std::to_wstring(publisher::kRevision);
}

std::wstring CddbReadUrl(Settings& settings, std::wstring_view category, std::wstring_view discId) {
  std::wstring url = CddbGateway(settings) + L"?cmd=cddb read ";
  url.append(category).append(L" ").append(discId);
  url += L"&hello=" + CddbHello(kCddbUser, publisher::kWebHost, publisher::kProduct) + L"&proto=5";
  return Replace(url, L" ", L"+");
}

std::optional<CddbRecord> ParseDiscRecord(std::string_view answer) {
  const auto record = RecordText(answer);
  if (!record || answer.find("\r\n.") == answer.npos) return std::nullopt;
  const auto title = Value(*record, "DTITLE=");
  if (!title) return std::nullopt;
  CddbRecord disc;
  ReadArtistAndAlbum(*title, disc);
  if (const auto year = Value(*record, "DYEAR=")) disc.year = *year;
  ReadTitles(*record, disc);
  if (const auto lastOffset = ReadOffsets(*record, disc)) ReadLastLength(*record, *lastOffset, disc);
  return disc;
}

Disc DiscOf(const CddbRecord& record, const std::wstring& category,
            const std::function<std::wstring(std::string_view)>& text) {
  Disc disc;
  disc.artist = text(record.artist);
  disc.album = text(record.album);
  disc.genre = category;
  if (record.year) disc.year = text(*record.year);
  disc.tracks.reserve(record.tracks.size());
  for (const CddbTrack& track : record.tracks) disc.tracks.push_back({text(track.title), track.frames});
  return disc;
}

}  // namespace tagrix
