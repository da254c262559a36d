#include "sources/musicbrainz.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/letter_case.h"
#include "base/publisher.h"
#include "base/text.h"
#include "base/utf8.h"

namespace tagrix {
namespace musicbrainz {
namespace {

// The medium's number among the release's, counted from 1. What a search finds may not tell.
std::int64_t NumberOf(const Release& release, std::size_t index) {
  const std::int64_t position = release.media[index].position;
  return position > 0 ? position : static_cast<std::int64_t>(index) + 1;
}

std::wstring Year(const Release& release) {
  std::wstring year = release.date.substr(0, 4);
  return IsYear(year) ? year : std::wstring();
}

std::wstring TitleOf(const Release& release, std::size_t index) {
  const Medium& medium = release.media[index];
  std::vector<std::wstring> parts = {Year(release), release.country};
  if (release.media.size() > 1) {
    parts.push_back((medium.format.empty() ? L"Disc" : medium.format) + L" " +
                    std::to_wstring(NumberOf(release, index)) + L" of " + std::to_wstring(release.media.size()));
  }
  if (medium.trackCount > 0) {
    parts.push_back(std::to_wstring(medium.trackCount) + (medium.trackCount == 1 ? L" track" : L" tracks"));
  }
  std::wstring details;
  for (const std::wstring& part : parts) {
    if (!part.empty()) details += (details.empty() ? L"" : L", ") + part;
  }
  std::wstring title = release.artist.empty() ? release.title : release.artist + L" / " + release.title;
  return details.empty() ? title : title + L" (" + details + L")";
}

// The nearest number of CD frames; 0 when unknown.
std::int32_t Frames(const Track& track) {
  constexpr std::int64_t kFramesPerSecond = 75, kLongest = 2'000'000'000;
  const std::int64_t length = track.length > 0 ? track.length : track.recordingLength;
  return static_cast<std::int32_t>((std::clamp<std::int64_t>(length, 0, kLongest) * kFramesPerSecond + 500) / 1000);
}

}  // namespace

std::wstring ReleaseQuery(const std::wstring& words, bool any) {
  constexpr std::wstring_view kSpecial = L"+-&|!(){}[]^\"~*?:\\/";
  std::wstring query;
  // In small letters no word is one of the operators.
  for (const std::wstring& word : Split(Replace(ToLower(words), L"\t", L" "), L" ")) {
    if (word.empty() || word == L"-") continue;
    std::wstring term;
    for (const wchar_t c : word) {
      if (kSpecial.find(c) != kSpecial.npos) term += L'\\';
      term += c;
    }
    if (!query.empty()) query += any ? L" OR " : L" AND ";
    query.append(L"(release:").append(term).append(L" OR artist:").append(term).append(L")");
  }
  return query;
}

std::vector<DiscHit> HitsOf(const Release& release) {
  std::vector<DiscHit> hits;
  for (std::size_t i = 0; i < release.media.size(); ++i) {
    hits.push_back({TitleOf(release, i), std::to_wstring(NumberOf(release, i)), release.id});
  }
  return hits;
}

std::optional<Disc> DiscOf(const Release& release, std::int64_t number) {
  for (std::size_t i = 0; i < release.media.size(); ++i) {
    if (NumberOf(release, i) != number) continue;
    Disc disc{release.artist, release.title, release.genre.empty() ? L"Unknown" : release.genre, Year(release), {}};
    for (const Track& track : release.media[i].tracks) {
      const bool own = track.artist.empty() || track.artist == release.artist;
      disc.tracks.push_back({own ? track.title : track.artist + L" / " + track.title, Frames(track)});
    }
    return disc;
  }
  return std::nullopt;
}

}  // namespace musicbrainz

namespace {

constexpr std::uint64_t kPeace = 1000;           // milliseconds between two requests
constexpr int kUsualWait = 2, kLongestWait = 5;  // seconds for a server that asks for patience

std::wstring UserAgent() {
  using namespace publisher;
  return std::wstring(kProduct) + L"/" + std::to_wstring(kMajor) + L"." + std::to_wstring(kMinor) + L"." +
         std::to_wstring(kRevision) + L" ( " + kSupportMail + L" )";
}

// The web service's address on the server of the settings; one that is to be asked without TLS begins with "http://".
std::wstring ServiceAddress(Settings& settings) {
  std::wstring server = settings.Get(setting::kMusicBrainzServer);
  while (server.ends_with(L'/')) server.pop_back();
  return (server.find(L"://") == server.npos ? L"https://" : L"") + server + L"/ws/2/";
}

bool AsksForPatience(const HttpsAnswer& answer) {
  return (answer.status == 429 || answer.status == 503) && answer.retryAfter <= kLongestWait;
}

// A request's way from its start to its end, whatever that is.
class Request {
 public:
  Request(HttpsClient& https, const HttpsRequest& request) : https_(https) {
    https_.ended = [this](HttpsAnswer got) { answer = std::move(got); };
    https_.Get(request);
  }
  ~Request() {
    https_.Close();
    https_.ended = nullptr;
  }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  std::optional<HttpsAnswer> answer;

 private:
  HttpsClient& https_;
};

}  // namespace

SourceReply MusicBrainzSource::Search(const SearchQuery& query, const std::function<void(std::vector<DiscHit>)>& found,
                                      Progress& progress) {
  const std::wstring releases = musicbrainz::ReleaseQuery(query.words, query.any);
  if (releases.empty()) return {};
  musicbrainz::Reply reply;
  SourceReply end = Ask(L"release?query=" + UrlEncoded(releases) + L"&limit=50&fmt=json", reply, progress);
  if (end.answer != Answer::Given) return end;
  if (!reply.found) return {Answer::Refused, reply.error};
  std::vector<DiscHit> hits;
  for (const musicbrainz::Release& release : *reply.found) {
    auto some = musicbrainz::HitsOf(release);
    std::move(some.begin(), some.end(), std::back_inserter(hits));
  }
  found(std::move(hits));
  return end;
}

SourceReply MusicBrainzSource::Read(const DiscHit& hit, std::optional<Disc>& disc, Progress& progress) {
  musicbrainz::Reply reply;
  SourceReply end =
      Ask(L"release/" + UrlEncoded(hit.id) + L"?inc=recordings+artist-credits+genres&fmt=json", reply, progress);
  if (end.answer != Answer::Given) return end;
  if (reply.release.id.empty()) return {Answer::Refused, reply.error};
  if (auto medium = musicbrainz::DiscOf(reply.release, LeadingInteger(hit.category))) disc = std::move(medium);
  return end;
}

SourceReply MusicBrainzSource::Ask(const std::wstring& path, musicbrainz::Reply& reply, Progress& progress) {
  std::optional<HttpsAnswer> answer = Get(path, progress);
  if (answer && AsksForPatience(*answer)) {
    next_ = ports_.events.TickCount() +
            static_cast<std::uint64_t>(answer->retryAfter > 0 ? answer->retryAfter : kUsualWait) * 1000;
    answer = Get(path, progress);
  }
  if (!answer) return {Answer::Cancelled};
  if (answer->end == HttpsAnswer::End::TooLong) return {Answer::Refused};
  if (answer->end == HttpsAnswer::End::NotSecure) return {Answer::NotSecure};
  if (answer->end != HttpsAnswer::End::Complete) return {Answer::NotReached};

  auto parsed = musicbrainz::ParseReply(answer->body, [&] {
    progress.LetEventsRun();
    return !progress.Cancelled();
  });
  if (progress.Cancelled()) return {Answer::Cancelled};
  if (!parsed || answer->status != 200) return {Answer::Refused, parsed ? parsed->error : std::wstring()};
  reply = std::move(*parsed);
  return {};
}

std::optional<HttpsAnswer> MusicBrainzSource::Get(const std::wstring& path, Progress& progress) {
  if (!RunUntil([&] { return ports_.events.TickCount() >= next_; }, progress)) return std::nullopt;
  HttpsRequest request;
  request.url = ServiceAddress(ports_.settings) + path;
  request.userAgent = UserAgent();
  if (ports_.settings.ThroughProxy()) {
    request.proxy = ports_.settings.Get(setting::kProxyName);
    request.proxyPort = ports_.settings.Get(setting::kProxyPort);
  }
  next_ = ports_.events.TickCount() + kPeace;
  Request running(ports_.https, request);
  if (!RunUntil([&] { return running.answer.has_value(); }, progress)) return std::nullopt;
  return std::move(running.answer);
}

bool MusicBrainzSource::RunUntil(const std::function<bool()>& done, Progress& progress) {
  ports_.events.RunUntil([&] { return done() || progress.Cancelled(); });
  return !progress.Cancelled();
}

}  // namespace tagrix
