#include "discserver/xmcd.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>

#include "discserver/text.h"

namespace discserver {
namespace {

// Cuts the first line off the text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

// The number after blanks at the front of the text; -1 when there is none.
long LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  long number = -1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::clamp(number, -1L, 100'000'000L);
}

// The number after `label` ("# Disc length:"); -1 when the record doesn't hold it.
long NumberAfter(std::string_view record, std::string_view label) {
  const std::size_t at = record.find(label);
  return at == record.npos ? -1 : LeadingNumber(record.substr(at + label.size()));
}

// Where tracks begin, in frames, and the disc ends: one more than there are tracks.
std::vector<long> Offsets(std::string_view record) {
  constexpr std::string_view kHeader = "# Track frame offsets:";
  constexpr long kFramesPerSecond = 75;
  std::vector<long> offsets;
  const std::size_t at = record.find(kHeader);
  if (at == record.npos) return offsets;
  record.remove_prefix(at);
  TakeLine(record);
  while (record.starts_with('#')) {
    const long offset = LeadingNumber(TakeLine(record).substr(1));
    if (offset < 0) break;
    offsets.push_back(offset);
  }
  const long seconds = NumberAfter(record, "# Disc length:");
  if (seconds >= 0) offsets.push_back(seconds * kFramesPerSecond);
  return offsets;
}

}  // namespace

std::string RecordText(std::string_view file) {
  std::string text;
  text.reserve(file.size() + 1);
  while (!file.empty()) {
    std::string_view line = TakeLine(file);
    while (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty() && line[0] != '.') text.append(line).append("\n");
  }
  return ToUtf8(std::move(text));
}

std::string Value(std::string_view record, std::string_view key) {
  std::string value;
  for (std::size_t at = record.find(key); at != record.npos; at = record.find(key, at)) {
    const bool lineStart = at == 0 || record[at - 1] == '\n';
    at += key.size();
    if (lineStart) value += record.substr(at, record.find('\n', at) - at);
  }
  return value;
}

std::string DiscTitle(std::string_view record) { return Value(record, "DTITLE="); }

int Revision(std::string_view record) { return static_cast<int>(std::max(NumberAfter(record, "# Revision:"), 0L)); }

std::string WithoutYearAndGenre(std::string_view record) {
  std::string kept;
  while (!record.empty()) {
    const std::string_view line = TakeLine(record);
    if (!line.starts_with("DYEAR=") && !line.starts_with("DGENRE=")) kept.append(line).append("\n");
  }
  return kept;
}

ArtistAndTitle SplitTitle(std::string_view title) {
  constexpr std::string_view kBetween = " / ";
  const std::size_t at = title.find(kBetween);
  if (at == title.npos) return {std::string(title), std::string(title)};
  return {std::string(title.substr(0, at)), std::string(title.substr(at + kBetween.size()))};
}

std::vector<Track> Tracks(std::string_view record) {
  constexpr std::string_view kKey = "TTITLE";
  std::map<long, std::string> titles;
  for (std::string_view rest = record; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    const std::size_t equals = line.find('=');
    if (!line.starts_with(kKey) || equals == line.npos) continue;
    titles[LeadingNumber(line.substr(kKey.size(), equals - kKey.size()))] += line.substr(equals + 1);
  }
  const std::vector<long> offsets = Offsets(record);
  std::vector<Track> tracks;
  for (auto found = titles.find(0); found != titles.end(); found = titles.find(static_cast<long>(tracks.size()))) {
    const std::size_t i = tracks.size();
    const long frames = i + 1 < offsets.size() ? std::max(offsets[i + 1] - offsets[i], 0L) : 0;
    tracks.push_back({std::move(found->second), frames * 1000 / 75});
  }
  return tracks;
}

bool IsDiscId(std::string_view id) { return id.size() == 8 && id.find_first_not_of("0123456789abcdef") == id.npos; }

}  // namespace discserver
