// Proxy requests, requests that are none, clients that stall, cut and flood, and the program's end.
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <optional>
#include <thread>

#include "bench/loopback_client.h"
#include "discserver/fixtures.h"
#include "discserver/http_server.h"

namespace discserver {
namespace {

const std::string kSearch = "/freedb_search.php?words=paper+lanterns";

// The server with the sample records on the loopback.
struct Server : testing::Test {
  Server() {
    std::signal(SIGPIPE, SIG_IGN);
    ImportInto(folder / "discs.db", TAGRIX_RECORDS);
    server.emplace(folder / "discs.db", "127.0.0.1", 0);
    port = server->Port();
  }
  int Open(const std::string& bytes, const char* from = "127.0.0.1") const { return loopback::Open(port, bytes, from); }
  std::string Ask(const std::string& request) const { return loopback::Ask(port, request); }
  bool Answers(const std::string& path, const std::string& holds) const {
    return Ask("GET " + path + " HTTP/1.0\r\nHost: x\r\n\r\n").find(holds) != std::string::npos;
  }

  TemporaryFolder folder;
  std::optional<HttpServer> server;
  int port = 0;
};

TEST_F(Server, IsAWebSiteAndAProxy) {
  const std::string page = "/freedb_search.php?words=";
  EXPECT_TRUE(Answers(page + "CAF%C9", "&id=2404fc04\">Odile Fontan\xE8s Trio / Caf\xE9 du L\xE9zard</a></td>"));
  EXPECT_TRUE(Answers(page + "harbour+%3Clights", "with harbour &lt;lights<"));
  EXPECT_TRUE(Answers(page + "harbour+lights", "><font size=-1>The Paper Lanterns / Harbour Lights</font></a>"));
  EXPECT_TRUE(Answers("http://www.freedb.org" + kSearch,
                      "<a href=\"http://www.freedb.org/freedb_search_fmt.php?cat=rock&id=47013c08\">"));
  EXPECT_TRUE(Answers("/~cddb/cddb.cgi?cmd=search&artist=&album=caf%C3%A9&hello=a+b+c+d&proto=6",
                      "200 Found 1 matches, list follows (until terminating `.')\r\njazz 2404fc04 Odile"));
  EXPECT_TRUE(Answers("/ws/2/release?query=release:caf%C3%A9&fmt=json&limit=1", "\"score\":100"));
}

TEST_F(Server, AnswersWhatIsNoRequestAndGoesOn) {
  const struct {
    std::string request, status;
  } kCases[] = {
      {"GET /nothing HTTP/1.0\r\n\r\n", "404 Not Found"},
      {"POST /freedb_search.php HTTP/1.0\r\nContent-Length: 3\r\n\r\nabc", "405 Method Not Allowed"},
      {"GET /ws/2/release?query=( HTTP/1.0\r\n\r\n", "406 Not Acceptable"},
      {"GET /ws/2/release?query=(&fmt=json HTTP/1.0\r\n\r\n", "400 Bad Request"},
      {"GET /ws/2/release/1-2?fmt=json HTTP/1.0\r\n\r\n", "404 Not Found"},
      {"GET /freedb_search.php?words=%00%ff%zz& HTTP/1.0\r\n\r\n", "200 OK"},
      {"GET /" + std::string(100'000, 'x') + " HTTP/1.0\r\n\r\n", "414 URI Too Long"},
      {"GET / HTTP/1.0\r\nX: " + std::string(100'000, 'x') + "\r\n\r\n", "431 Request Header Fields Too Large"}};
  for (const auto& [request, status] : kCases) {
    const std::string answer = Ask(request);
    EXPECT_EQ(answer.substr(0, answer.find('\r')), "HTTP/1.1 " + status) << request.substr(0, 60);
  }
  for (const std::string& bytes : {std::string("\r\n\r\n"), std::string(5000, '\0'), std::string("GET\r\n\r\n")}) {
    close(Open(bytes));
  }
  const std::string request = "GET " + kSearch + " HTTP/1.1\r\nHost: a\r\n\r\n";
  for (std::size_t size = 0; size < request.size(); ++size) close(Open(request.substr(0, size)));
  EXPECT_TRUE(Answers(kSearch, "id=47013c08"));
}

// Good clients are answered while others hang on, and while one at another address asks more than it lets be answered.
TEST_F(Server, BadClientsDisturbNoOther) {
  std::vector<int> stalled;
  for (int i = 0; i < 64; ++i) stalled.push_back(Open("GET " + kSearch + " HTT"));
  std::atomic<bool> done = false;
  std::thread flood([&] {
    std::string requests;
    for (int i = 0; i < 1000; ++i) requests += "GET " + kSearch + " HTTP/1.1\r\nHost: a\r\n\r\n";
    while (!done) close(Open(requests, "127.0.0.2"));  // cut while they are answered
  });
  std::atomic<int> answered = 0;
  std::vector<std::thread> clients;
  for (int i = 0; i < 16; ++i) {
    clients.emplace_back([&] {
      for (int j = 0; j < 20; ++j) answered += Answers(kSearch, "id=47013c08");
    });
  }
  for (std::thread& client : clients) client.join();
  done = true;
  flood.join();
  EXPECT_EQ(answered, 16 * 20);
  server.reset();  // they don't hold up its end
  for (const int connection : stalled) close(connection);
}

TEST_F(Server, TheProgramTellsByItsExitCodeHowItEnded) {
  const std::string database = " --database " + (folder / "other.db"), port_option = " --port " + std::to_string(port);
  EXPECT_EQ(RunProgram("serve" + database), 1);  // there is none
  EXPECT_FALSE(std::filesystem::exists(folder / "other.db"));
  EXPECT_EQ(RunProgram("import" + database + " " TAGRIX_RECORDS), 0);
  EXPECT_EQ(RunProgram("serve" + database + port_option), 1);  // it is taken
  EXPECT_EQ(RunProgram("serve" + database + " --port x"), 2);
  EXPECT_EQ(RunProgram("import"), 2);
  server.reset();
  EXPECT_EQ(RunProgram("serve" + database + port_option, "timeout --preserve-status 2"), 0);  // SIGTERM ends it
}

}  // namespace
}  // namespace discserver
