// http PORT COUNT: GetWebSite of a page of hits from the disc server, as a proxy on this port.
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "freedb/http_client.h"
#include "freedb/search_page.h"

int main(int, char** arguments) {
  tagrix::TestContext test;
  const tagrix::RealNetwork network = tagrix::OpenNetwork();
  tagrix::Context context{tagrix::Ports{test.files, test.registry, test.codePage, *network.events, test.clock,
                                        test.shell, test.prompts, *network.socket, test.ftp},
                          L"C:\\Tagrix"};
  context.settings.Put(L"UseProxy", L"1");
  context.settings.Put(L"ProxyName", L"127.0.0.1");
  context.settings.Put(L"ProxyPort", tagrix::Widen(arguments[1]));
  tagrix::HttpClient http(context);
  std::size_t received = 0;
  tagrix::TimeEach(std::vector<std::string>(std::stoul(arguments[2])), [&](const std::string&) {
    std::wstring url = tagrix::SearchUrl(L"paper lanterns");
    received += http.GetWebSite(url).size();
  });
  std::printf("bytes %zu\n", received);
}
