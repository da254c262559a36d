#include "freedb/gnudb.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/publisher.h"
#include "base/text.h"
#include "base/utf8.h"
#include "freedb/cddb.h"

namespace tagrix {
namespace {

constexpr std::string_view kHeadersEnd = "\r\n\r\n";

std::string_view Body(std::string_view answer) {
  const size_t end = answer.find(kHeadersEnd);
  return end == answer.npos ? std::string_view() : answer.substr(end + kHeadersEnd.size());
}

// The next line of a text, without its end, which may be a bare LF; the rest stays.
std::string_view TakeLine(std::string_view& text) {
  const size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// The response code that a reply begins with: three digits before a blank; empty when it begins otherwise.
std::string_view CodeOf(std::string_view body) {
  const std::string_view code = body.substr(0, body.find(' '));
  const bool digits = std::all_of(code.begin(), code.end(), [](char c) { return c >= '0' && c <= '9'; });
  return digits && code.size() == 3 && body.size() > 3 ? code : std::string_view();
}

// The lines after the first, up to the "." that ends them; nothing when it doesn't come.
std::optional<std::vector<std::string_view>> ListOf(std::string_view body) {
  TakeLine(body);
  std::vector<std::string_view> lines;
  while (!body.empty()) {
    const std::string_view line = TakeLine(body);
    if (line == ".") return lines;
    lines.push_back(line);
  }
  return std::nullopt;
}

// A record in the form in which FreeDB's servers answer it, with the values that go on in a second line of the same key
// joined.
std::string Joined(const std::vector<std::string_view>& lines) {
  std::string record = "\r\n\r\n210 \r\n";
  std::string_view before;
  for (const std::string_view line : lines) {
    const size_t value = line.starts_with('#') ? 0 : line.find('=') + 1;  // 0 when there is none
    const std::string_view key = line.substr(0, value);
    const bool goesOn = !key.empty() && key == before;
    if (goesOn) record.resize(record.size() - 2);
    record.append(goesOn ? line.substr(value) : line).append("\r\n");
    before = key;
  }
  return record + ".\r\n";
}

// Which part of "Artist / Title" is which: some artists have a "/" of their own. Without any the text is both.
void SplitTitle(CddbRecord& record) {
  constexpr std::string_view kBetween = " / ";
  const size_t at = record.title.find(kBetween);
  if (at == record.title.npos) return;
  record.artist = record.title.substr(0, at);
  record.album = record.title.substr(at + kBetween.size());
}

}  // namespace

SourceReply GnudbSource::Search(const SearchQuery& query, const Found& found, Progress& progress) {
  constexpr std::wstring_view kBetween = L" - ";
  http_.ResetReceivedCount();
  const std::wstring_view words = query.words;
  const size_t at = words.find(kBetween);
  const std::wstring_view artist = words.substr(0, at);
  const std::wstring_view album = at == words.npos ? words : words.substr(at + kBetween.size());
  if (!query.any) return SearchFor(artist, album, found, progress);

  std::set<std::pair<std::wstring, std::wstring>> seen;
  const Found once = [&](std::vector<DiscHit> hits) {
    std::erase_if(hits, [&](const DiscHit& hit) { return !seen.emplace(hit.category, hit.id).second; });
    found(std::move(hits));
  };
  const SourceReply reply = SearchFor(artist, {}, once, progress);
  return reply.answer == Answer::Given ? SearchFor({}, album, once, progress) : reply;
}

SourceReply GnudbSource::SearchFor(std::wstring_view artist, std::wstring_view album, const Found& found,
                                   Progress& progress) {
  constexpr size_t kBatch = 4096;  // hits between two looks at the events
  std::string answer;
  SourceReply reply = Ask(L"search&artist=" + UrlEncoded(artist) + L"&album=" + UrlEncoded(album), answer, progress);
  const std::string_view code = CodeOf(Body(answer));
  if (reply.answer != Answer::Given || code == "202") return reply;
  if (code != "200" && code != "210" && code != "211") return Refused(answer);
  const auto lines = ListOf(Body(answer));
  if (!lines) return {Answer::Refused};

  bool any = false;
  for (size_t i = 0; i < lines->size() && !progress.Cancelled();) {
    std::vector<DiscHit> hits;
    for (const size_t end = std::min(i + kBatch, lines->size()); i < end; ++i) {
      if (auto hit = HitOf((*lines)[i])) hits.push_back(std::move(*hit));
    }
    any = any || !hits.empty();
    found(std::move(hits));
    if (i < lines->size()) progress.LetEventsRun();
  }
  if (progress.Cancelled()) return {Answer::Cancelled};
  // Lines that are no discs are what the server has to say.
  return any || lines->empty() ? reply : Refused(answer);
}

SourceReply GnudbSource::Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) {
  std::string answer;
  SourceReply reply = Ask(UrlEncoded(L"cddb read " + hit.category + L" " + hit.id), answer, progress);
  if (reply.answer != Answer::Given) return reply;
  const std::string_view body = Body(answer);
  if (CodeOf(body) != "210") return Refused(answer);
  const auto lines = ListOf(body);
  auto record = lines ? ParseDiscRecord(Joined(*lines)) : std::nullopt;
  if (!record) return {Answer::Refused};
  SplitTitle(*record);
  disc = DiscOf(*record, hit.category, [this](std::string_view bytes) { return Trim(Text(bytes)); });
  return reply;
}

SourceReply GnudbSource::Ask(const std::wstring& command, std::string& answer, Progress& progress) {
  std::wstring url = CddbGateway(settings_) + L"?cmd=" + command + L"&hello=" + UrlEncoded(Hello()) + L"&proto=6";
  std::string refusal;
  answer = http_.GetWebSite(url, progress, &refusal);
  http_.ErrorOccured();
  if (progress.Cancelled()) return {Answer::Cancelled};
  if (!refusal.empty()) return Refused(refusal);
  return {answer.empty() ? Answer::NotReached : Answer::Given};
}

std::wstring GnudbSource::Hello() {
  const std::wstring contact = Replace(settings_.Get(setting::kContact), L" ", L"");
  if (contact.empty()) return CddbHello(kCddbUser, publisher::kWebHost, publisher::kCddbClient);
  const size_t at = contact.rfind(L'@');
  const std::wstring host = at == contact.npos ? publisher::kWebHost : contact.substr(at + 1);
  return CddbHello(contact.substr(0, at), host, publisher::kCddbClient);
}

std::wstring GnudbSource::Text(std::string_view bytes) const {
  const auto text = FromUtf8(bytes);
  return text ? *text : codePage_.ToText(bytes);
}

// "rock 47013c08 Artist / Title".
std::optional<DiscHit> GnudbSource::HitOf(std::string_view line) const {
  const size_t id = line.find(' ') + 1;
  const size_t title = line.find(' ', id) + 1;
  if (id <= 1 || title == 0 || title == line.size()) return std::nullopt;
  const std::string_view digits = line.substr(id, title - 1 - id);
  if (digits.size() != 8 || digits.find_first_not_of("0123456789abcdefABCDEF") != digits.npos) return std::nullopt;
  return DiscHit{Text(line.substr(title)), Text(line.substr(0, id - 1)), Text(digits)};
}

// In the words of the body, where that is plain text, else of a status line that tells an error.
SourceReply GnudbSource::Refused(std::string_view answer) const {
  constexpr size_t kMost = 1000;
  std::string_view words = Body(answer);
  const size_t start = words.find_first_not_of(" \t\r\n");
  if (start == words.npos || words[start] == '<') {
    words = TakeLine(answer);
    words.remove_prefix(std::min(words.find(' '), words.size()));
    if (words.starts_with(" 200")) words = {};
  }
  if (words.size() > kMost) words = words.substr(0, std::min(words.find_last_of(" \n", kMost), kMost));
  std::wstring text = Text(words);
  std::erase_if(text, [](wchar_t c) { return c < L' ' && c != L'\r' && c != L'\n'; });
  return {Answer::Refused, Trim(text)};
}

}  // namespace tagrix
