// The HTTPS client that shares its contract on this system, and where its servers are.
#ifndef TAGRIX_TESTS_CONTRACT_HTTPS_CASE_H
#define TAGRIX_TESTS_CONTRACT_HTTPS_CASE_H

#include <string>

#ifdef _WIN32
#include <windows.h>
// Needs windows.h before it.
#include <wincrypt.h>

#include "win32/ports/https_client.h"
#include "win32/windows/event_loop.h"
#else
#include "fakes/fakes.h"
#endif

namespace tagrix {

#ifdef _WIN32

// Real servers, which the environment names (see https_server.py); the certificate of one of them is trusted for as
// long as this lives.
struct HttpsCase {
  HttpsCase();
  ~HttpsCase();
  HttpsCase(const HttpsCase&) = delete;
  HttpsCase& operator=(const HttpsCase&) = delete;
  // The start of an address on the server whose port the environment variable names.
  static std::wstring Site(const char* variable, const wchar_t* host = L"https://localhost:");
  static int Port(const char* variable);
  static std::wstring Trusted() { return Site("TAGRIX_HTTPS_PORT"); }

  WinEventLoop events;
  WinHttpsClient https;

 private:
  HCERTSTORE store_;  // of the authorities that the current user trusts
  PCCERT_CONTEXT certificate_ = nullptr;
};

#else

struct HttpsCase {
  HttpsCase();
  static std::wstring Trusted() { return L"https://localhost"; }

  FakeEvents events;
  FakeHttps https{events};
};

inline HttpsCase::HttpsCase() {
  https.serve = [](const HttpsRequest& request) -> HttpsAnswer {
    constexpr auto kComplete = HttpsAnswer::End::Complete;
    const std::wstring path = request.url.substr(Trusted().size());
    if (path == L"/missing") return {kComplete, 404, 0, "nothing here"};
    if (path == L"/busy") return {kComplete, 503, 3, "slow down"};
    if (path == L"/long") return {kComplete, 200, 0, std::string(3'000'000, 'x')};
    const auto ascii = [](const std::wstring& text) { return std::string(text.begin(), text.end()); };
    return {kComplete, 200, 0, ascii(path) + " for " + ascii(request.userAgent)};
  };
}

#endif

}  // namespace tagrix

#endif
