// hits_floor PORT COUNT: the requests of hits_win32 over a bare connection each. Prints the median time of the answers,
// by source, in milliseconds.
#include "base/publisher.h"
#include "base/utf8.h"
#include "bench/loopback_client.h"
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "freedb/cddb.h"
#include "freedb/http_message.h"
#include "freedb/search_page.h"
#include "sources/musicbrainz.h"

namespace {

using tagrix::UrlEncoded;

std::wstring UrlOf(std::wstring_view source, const std::wstring& words, tagrix::Settings& settings) {
  if (source == L"FreeDB") return tagrix::SearchUrl(tagrix::FreeDbSite(settings), words);
  if (source == L"MusicBrainz") {
    return L"http://127.0.0.1/ws/2/release?query=" + UrlEncoded(tagrix::musicbrainz::ReleaseQuery(words, false)) +
           L"&limit=50&fmt=json";
  }
  using namespace tagrix::publisher;
  return tagrix::CddbGateway(settings) + L"?cmd=search&artist=" + UrlEncoded(words) + L"&album=" + UrlEncoded(words) +
         L"&hello=" + UrlEncoded(tagrix::CddbHello(tagrix::kCddbUser, kWebHost, kCddbClient)) + L"&proto=6";
}

}  // namespace

int main(int, char** arguments) {
  const int port = std::stoi(arguments[1]);
  const std::size_t count = std::stoul(arguments[2]);
  tagrix::TestContext test;
  for (const wchar_t* source : {L"MusicBrainz", L"gnudb", L"FreeDB"}) {
    std::vector<double> times;
    for (std::size_t i = 0; i < count; ++i) {
      std::wstring url = UrlOf(source, i % 2 == 0 ? L"paper lanterns" : L"low tide", test.context.settings);
      const auto host = tagrix::PrepareUrl(url);
      const std::string request = test.codePage.ToBytes(tagrix::HttpRequest(url, host.value_or(L"")));
      const auto start = std::chrono::steady_clock::now();
      const std::string answer = loopback::Ask(port, request);
      times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
      if (answer.find(" 200 ") > 16) return 1;
    }
    std::sort(times.begin(), times.end());
    std::printf("%ls %.3f\n", source, times[times.size() / 2]);
  }
}
