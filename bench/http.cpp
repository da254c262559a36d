// http PORT COUNT: GetWebSite of a page of hits from the disc server, as a proxy on this port.
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "freedb/http_client.h"
#include "freedb/search_page.h"

int main(int, char** arguments) {
  tagrix::TestContext test;
  const tagrix::RealNetwork network = tagrix::OpenNetwork();
  tagrix::Settings& settings = test.context.settings;
  settings.Put(tagrix::setting::kUseProxy, true);
  settings.Put(tagrix::setting::kProxyName, L"127.0.0.1");
  settings.Put(tagrix::setting::kProxyPort, tagrix::Widen(arguments[1]));
  tagrix::HttpClient http({*network.socket, *network.events, test.codePage, settings});
  tagrix::QuietProgress progress;
  std::size_t received = 0;
  tagrix::TimeEach(std::vector<std::string>(std::stoul(arguments[2])), [&](const std::string&) {
    std::wstring url = tagrix::SearchUrl(tagrix::publisher::kFreeDbWebSite, L"paper lanterns");
    received += http.GetWebSite(url, progress).size();
  });
  std::printf("bytes %zu\n", received);
}
