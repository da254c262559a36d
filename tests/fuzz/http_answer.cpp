// An HTTP server's answer, and the request to where it redirects; the input is also taken as an address.
#include <algorithm>
#include <cassert>
#include <cstdint>

#include "base/text.h"
#include "freedb/http_message.h"

namespace tagrix {
namespace {

auto Lines(const std::wstring& request) { return std::count(request.begin(), request.end(), L'\n'); }

void Ask(std::wstring url) {
  const auto host = PrepareUrl(url);
  if (!host) return;
  assert(url.starts_with(L"http") && url.find(*host) != url.npos);
  // Nothing of an address may end the request line early.
  const std::wstring request = HttpRequest(url, *host);
  assert(request.starts_with(L"GET " + url + L" HTTP/1.0\r\n"));
  assert(Lines(request) == Lines(HttpRequest(L"http://host/", L"host")));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view answer(reinterpret_cast<const char*>(data), size);
  JudgeAnswer(answer);
  Ask(Widen(answer));
  const auto target = RedirectTarget(answer);
  if (!target) return 0;
  assert(target->data() > answer.data() && target->data() + target->size() < answer.data() + size);
  Ask(Widen(*target));
  return 0;
}

}  // namespace tagrix
