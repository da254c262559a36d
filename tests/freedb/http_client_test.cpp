#include "freedb/http_client.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"

namespace tagrix {
namespace {

constexpr const char* kOk = "HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\nbody";

struct Http : testing::Test {
  Http() { Answer(kOk); }
  void Answer(const std::string& answer) {
    test.socket.serve = [answer](const std::string&) { return answer; };
  }
  std::string Get(std::wstring url) { return http.GetWebSite(url, progress); }

  TestContext test;
  QuietProgress progress;
  HttpClient http{{test.socket, test.events, test.codePage, test.context.settings}};
};

TEST_F(Http, SendsTheAbsoluteAddress) {
  std::wstring url = L"  http://host.example  ";
  EXPECT_EQ(http.GetWebSite(url, progress), kOk);
  EXPECT_EQ(url, L"http://host.example/");
  EXPECT_EQ(test.socket.requests, (std::vector<std::string>{"GET http://host.example/ HTTP/1.0\r\n"
                                                            "Accept: */*\r\n"
                                                            "User-Agent: Tagrix\r\n"
                                                            "Host: host.example\r\n"
                                                            "Referer: http://www.tagrix.example\r\n"
                                                            "\r\n"}));
}

TEST_F(Http, TakesTheHostFromTheAddress) {
  const struct {
    const wchar_t *url, *asked, *host;
  } table[] = {
      {L"http://h", L"http://h/", L"h"},         {L"http://h/p?q=http://x/", L"http://h/p?q=http://x/", L"h"},
      {L"https://h/p", L"https://h/p", L"h"},    {L"http://h /p", L"http://h /p", L"h"},
      {L"http://h/x/h", L"http://h/x/h/", L"h"},  // only its end is looked at
      {L"http:///p", L"http:///p/", L"/p"},
  };
  for (const auto& [url, asked, host] : table) {
    std::wstring rewritten = url;
    EXPECT_EQ(http.GetWebSite(rewritten, progress), kOk);
    EXPECT_EQ(rewritten, asked);
    EXPECT_EQ(test.socket.host, host);
  }
}

TEST_F(Http, RefusesWhatIsNoAddress) {
  for (const wchar_t* url : {L"", L"http:/", L"https://", L"host.example/path", L"HTTP://host.example/",
                             L"ftp://host/x", L"http://h/a\r\nX: y"}) {
    EXPECT_EQ(Get(url), "");
  }
  EXPECT_EQ(test.socket.host, L"");
  test.socket.serve = nullptr;  // no connection
  EXPECT_EQ(Get(L"http://a/"), "");
  EXPECT_EQ(test.socket.State(), SocketState::Closed);
}

TEST_F(Http, ConnectsAsTheSettingsSay) {
  const struct {
    const wchar_t *use, *proxyPort, *httpPort, *host;
    int port;
  } table[] = {
      {L"", L"", L"", L"h", 80},
      {L"1 ", L" 3128 ", L"81", L"proxy", 3128},
      {L"1", L"-8", L"81", L"proxy", 80},
      {L"true", L"99999", L"8080x", L"h", 8080},
      {L"0", L"3128", L"32767", L"h", 32767},
  };
  test.context.settings.Put(setting::kProxyName, L" proxy ");
  for (const auto& [use, proxyPort, httpPort, host, port] : table) {
    test.registry.SetRegValue(Hive::CurrentUser, kSettingsKey, L"UseProxy", use);
    test.context.settings.Put(setting::kProxyPort, proxyPort);
    test.context.settings.Put(setting::kHttpPort, httpPort);
    EXPECT_EQ(Get(L"http://h/"), kOk);
    EXPECT_EQ(test.socket.host, host);
    EXPECT_EQ(test.socket.port, port);
  }
  const struct {
    const wchar_t *url, *host;
    int port;
  } own[] = {{L"http://h:65535/", L"h", 65535},
             {L"http://h:65536/", L"h:65536", 81},
             {L"http://h:8x/", L"h:8x", 81},
             {L"http://h:/", L"h:", 81},
             {L"http://[::1]/", L"[::1]", 81}};
  test.context.settings.Put(setting::kHttpPort, L"81");
  for (const auto& [url, host, port] : own) {
    EXPECT_EQ(Get(url), kOk);
    EXPECT_EQ(test.socket.host, host);
    EXPECT_EQ(test.socket.port, port);
  }
  EXPECT_NE(test.socket.requests.at(5).find("\r\nHost: h:65535\r\n"), std::string::npos);
  test.context.settings.Put(setting::kHttpPort, L"32768");
  EXPECT_THROW(Get(L"http://h/"), Failure);
}

TEST_F(Http, JudgesTheStatusLine) {
  for (const char* page :
       {"HTTP/1.1 200 OK\r\n\r\n", "HTTP/1.0 2000\r\n", "HTTP/1.0 404 Not Found\n\nlines end in LF only",
        "HTTP/1.0\r\n", "HTTP/1.0 404", "HTTP/1.0  40\r\n", "hello\r\n", "\n\r404 404 404", ""}) {
    Answer(page);
    EXPECT_EQ(Get(L"http://h/"), page);
  }
  for (const char* failed :
       {"HTTP/1.0 404\r\n", "HTTP/1.1 404 Not Found\r\n\r\nbody", "HTTP/1.0 301 Moved\r\nLocation: x\r\n",
        "HTTP/1.0 500 200\r\n", "210 rock 47013c08 entry follows\r\n", "HTTP/1.0 302 Found\r\n\r\n",
        "HTTP/1.0 302 Found\r\nlocation: http://x/\r\n", "HTTP/1.0 302 Found\r\nLocation: http://x/"}) {
    Answer(failed);
    EXPECT_EQ(Get(L"http://h/"), "") << failed;
  }
}

TEST_F(Http, FollowsRedirects) {
  test.socket.serve = [&](const std::string& request) -> std::string {
    if (request.starts_with("GET http://a/ ")) return "HTTP/1.0 302 Found\r\nLocation: http://b/1\r\n\r\n";
    if (request.starts_with("GET http://b/1 ")) return "HTTP/1.0 302\r\nLocation:http://c\r\n\r\n";
    return kOk;
  };
  std::wstring url = L"http://a";
  EXPECT_EQ(http.GetWebSite(url, progress), kOk);
  EXPECT_EQ(url, L"http://c/");
  EXPECT_EQ(test.socket.host, L"c");
  EXPECT_EQ(test.socket.requests.size(), 3u);
  // To itself: refused when nothing precedes the address, asked again when a blank does.
  Answer("HTTP/1.0 302 Found\r\nLocation:http://d/\r\n\r\n");
  EXPECT_EQ(Get(L"http://d/"), "");
  EXPECT_EQ(test.socket.requests.size(), 4u);
  test.socket.serve = [n = 0](const std::string&) mutable {
    return ++n < 3 ? "HTTP/1.0 302 Found\r\nLocation: http://d/\r\n\r\n" : kOk;
  };
  EXPECT_EQ(Get(L"http://d/"), kOk);
}

TEST_F(Http, IsCancelledAtAnyMoment) {
  Answer("HTTP/1.0 302 Found\r\nLocation: http://a/\r\n\r\n");  // without end
  for (int round = 0; round < 12; ++round) {
    progress.cancelled = false;
    test.events.eachTime = [&, left = round]() mutable { progress.cancelled = left-- <= 0; };
    EXPECT_EQ(Get(L"http://a/"), "");
    EXPECT_LE(test.socket.requests.size(), static_cast<std::size_t>(round));
    test.socket.requests.clear();
  }
  test.events.eachTime = [&] { progress.cancelled = test.socket.State() == SocketState::Connecting; };
  EXPECT_EQ(Get(L"http://a/"), "");
  EXPECT_TRUE(test.socket.requests.empty());
  EXPECT_EQ(test.socket.State(), SocketState::Closed);

  // What has come of an answer when it is cancelled is kept.
  progress.cancelled = false;
  progress.texts.clear();
  test.socket.closeAfterAnswer = false;
  Answer("HTTP/1.0 200 OK\r\n\r\nsome");
  test.events.eachTime = [&] { progress.cancelled = !progress.texts.empty(); };
  EXPECT_EQ(Get(L"http://a/"), "");
  std::string kept;
  http.WaitFor("", progress, &kept);
  EXPECT_EQ(kept, "HTTP/1.0 200 OK\r\n\r\nsome");
}

TEST_F(Http, ShowsHowMuchHasCome) {
  Answer(std::string(12800, 'x'));
  Get(L"http://a/");
  EXPECT_EQ(progress.texts.back(), L"Downloading : 12.50 Kb");
  Answer(std::string(128, 'x'));
  Get(L"http://a/");
  EXPECT_EQ(progress.texts.back(), L"Downloading : 12.63 Kb");  // goes on counting
  EXPECT_EQ(test.events.ticks, 1000u);                          // no event was slept through
  EXPECT_TRUE(progress.percents.empty());

  Answer("HTTP/1.0 200 OK\r\nCONTENT-length: 26\r\n\r\nhalf of its 26");  // 39 bytes of headers
  Get(L"http://a/");
  EXPECT_EQ(progress.percents, std::vector<int>{53 * 100 / 65});
  for (const char* unsaid :
       {"HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\nmore", "HTTP/1.0 200 OK\r\n\r\nContent-Length: 9",
        "HTTP/1.0 200 OK\r\nContent-Length: some\r\n\r\n"}) {
    Answer(unsaid);
    Get(L"http://a/");
  }
  EXPECT_EQ(progress.percents.size(), 1U);
}

TEST_F(Http, GivesUpAnAnswerThatHasNoEnd) {
  Answer(std::string((256 << 20) + 1, 'x'));
  EXPECT_EQ(Get(L"http://a/"), "");
  EXPECT_EQ(test.socket.State(), SocketState::Closed);
}

TEST_F(Http, SendsAndAwaitsLinesForFiveSeconds) {
  test.socket.closeAfterAnswer = false;
  test.socket.Connect(L"mail", 25);
  while (test.socket.State() != SocketState::Connected) test.events.DoEvents();
  std::string reply;
  // Each line is forgotten by the next one; a wrong line and an unfinished one are waited for in vain.
  for (const char* answer : {"250 fine\r\n", "", "550 no\r\n", "250 unfinished"}) {
    const bool fine = answer == std::string("250 fine\r\n");
    Answer(answer);
    EXPECT_TRUE(http.Send("NOOP", progress));
    EXPECT_EQ(test.socket.requests.back(), "NOOP\r\n");
    const auto start = test.events.ticks;
    EXPECT_EQ(http.WaitFor("220\r\n250", progress, &reply), fine) << answer;
    EXPECT_EQ(test.events.ticks, start + (fine ? 0 : 5000));
    EXPECT_EQ(reply, answer);
  }
  progress.cancelled = true;
  EXPECT_FALSE(http.WaitFor("250", progress) || http.Send("NOOP", progress));
  progress.cancelled = false;
  http.ErrorOccured();
  EXPECT_EQ(test.socket.State(), SocketState::Closed);
  EXPECT_FALSE(http.WaitFor("250", progress) || http.Send("NOOP", progress));
  EXPECT_EQ(test.socket.requests.size(), 5u);
}

}  // namespace
}  // namespace tagrix
