// What every HTTPS client port does: the in-memory twin, and Windows's own with real servers.
#include <utility>

#include "contract/cases.h"

namespace tagrix {
namespace {

using End = HttpsAnswer::End;

class HttpsContract : public testing::Test {
 protected:
  HttpsContract() { Use(case_.https); }

  void Use(HttpsClient& client) {
    client.ended = [this](HttpsAnswer answer) {
      ++ends_;
      answer_ = std::move(answer);
    };
    client_ = &client;
  }

  void Start(const std::wstring& url) {
    ends_ = 0;
    answer_ = {};
    request_.url = url;
    request_.userAgent = L"Tests/1.0 ( none )";
    client_->Get(request_);
    EXPECT_EQ(ends_, 0);
  }
  // Lets events run for so long, or until the request has ended.
  bool Ends(std::uint64_t milliseconds = 60'000) {
    return Until(
        case_.events, [this] { return ends_ > 0; }, milliseconds);
  }
  const HttpsAnswer& Fetch(const std::wstring& url) {
    Start(url);
    EXPECT_TRUE(Ends());
    return answer_;
  }

  HttpsCase case_;
  HttpsClient* client_ = nullptr;
  HttpsRequest request_;
  HttpsAnswer answer_;
  int ends_ = 0;
};

TEST_F(HttpsContract, HandsOverWhateverTheServerAnswersUpToTheLimit) {
  const struct {
    const wchar_t* path;
    int status, retryAfter;
    std::string body;
  } table[] = {{L"/good?a=%20b+c&d", 200, 0, "/good?a=%20b+c&d for Tests/1.0 ( none )"},
               {L"/missing", 404, 0, "nothing here"},
               {L"/busy", 503, 3, "slow down"},
               {L"/long", 200, 0, std::string(3'000'000, 'x')}};
  request_.limit = 3'000'000;
  for (const auto& [path, status, retryAfter, body] : table) {
    const HttpsAnswer& answer = Fetch(HttpsCase::Trusted() + path);
    EXPECT_EQ(answer.end, End::Complete) << path;
    EXPECT_EQ(answer.status, status);
    EXPECT_EQ(answer.retryAfter, retryAfter);
    EXPECT_TRUE(answer.body == body) << answer.body.size() << " bytes";
  }
  request_.limit = 2'999'999;
  EXPECT_EQ(Fetch(HttpsCase::Trusted() + L"/long").end, End::TooLong);
}

TEST_F(HttpsContract, EndsOnceAndNeverAfterClose) {
  Start(HttpsCase::Trusted() + L"/long");
  case_.https.Close();
  EXPECT_FALSE(Ends(200));
  Start(HttpsCase::Trusted() + L"/long");
  EXPECT_EQ(Fetch(HttpsCase::Trusted() + L"/missing").status, 404);  // ends the former
  ends_ = 0;
  EXPECT_FALSE(Ends(200));
  bool again = true;
  case_.https.ended = [&](const HttpsAnswer&) {
    if (std::exchange(again, false)) return case_.https.Get(request_);  // from within
    ++ends_;
  };
  Start(HttpsCase::Trusted() + L"/good");
  EXPECT_TRUE(Ends());
}

#ifdef _WIN32

TEST_F(HttpsContract, SaysWhyThereIsNoAnswer) {
  const std::wstring trusted = HttpsCase::Trusted();
  const struct {
    std::wstring url;
    End end;
  } table[] = {
      {HttpsCase::Site("TAGRIX_UNTRUSTED_PORT") + L"/good", End::NotSecure},
      {HttpsCase::Site("TAGRIX_HTTPS_PORT", L"https://127.0.0.1:") + L"/good", End::NotSecure},  // not its name
      {HttpsCase::Site("TAGRIX_OLD_TLS_PORT") + L"/good", End::NotSecure},
      {HttpsCase::Site("TAGRIX_HTTP_PORT") + L"/good", End::NotSecure},
      {HttpsCase::Site("TAGRIX_REFUSED_PORT") + L"/good", End::NotReached},
      {trusted + L"/cut", End::NotReached},
      {trusted + L"/endless", End::TooLong},
      {trusted + L"/moved-to-https", End::Complete},
      {L"https://", End::NotReached},
      {L"ftp://localhost/good", End::NotReached},
      {L"", End::NotReached},
  };
  request_.limit = 4'000'000;
  for (const auto& [url, end] : table) EXPECT_EQ(Fetch(url).end, end) << std::string(url.begin(), url.end());
  EXPECT_NE(Fetch(trusted + L"/moved-to-http").status, 200) << "must not go on without TLS";
}

TEST_F(HttpsContract, SpeaksPlainHttpWhereToldSoAndThroughAProxy) {
  EXPECT_EQ(Fetch(HttpsCase::Site("TAGRIX_HTTP_PORT", L"http://localhost:") + L"/good").body,
            "/good for Tests/1.0 ( none )");
  request_.proxy = L"localhost";
  request_.proxyPort = Port("TAGRIX_HTTP_PORT");
  EXPECT_TRUE(Fetch(L"http://elsewhere.invalid/good").body.starts_with("http://elsewhere.invalid")) << answer_.body;
  request_.proxyPort = Port("TAGRIX_REFUSED_PORT");
  EXPECT_EQ(Fetch(HttpsCase::Trusted() + L"/good").end, End::NotReached);
}

TEST_F(HttpsContract, IsPatientForAWhileOnlyAndCanBeStoppedAtAnyMoment) {
  WinHttpsClient impatient(1);
  for (const std::wstring& url :
       {HttpsCase::Site("TAGRIX_MUTE_PORT"), HttpsCase::Trusted() + L"/silent", HttpsCase::Trusted() + L"/stalled"}) {
    Use(case_.https);
    Start(url);
    EXPECT_FALSE(Ends(300));
    const auto start = case_.events.TickCount();
    case_.https.Close();
    EXPECT_LT(case_.events.TickCount() - start, 1'000U);  // the server would take longer
    EXPECT_FALSE(Ends(100));
    Use(impatient);
    EXPECT_EQ(Fetch(url).end, End::NotReached);
    EXPECT_EQ(answer_.body, "");
  }
}

#endif

}  // namespace
}  // namespace tagrix
