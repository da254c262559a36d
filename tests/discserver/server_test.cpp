// The program as a server: proxy requests, requests that are none, clients that stall, cut and flood, and its end.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

#include "discserver/disc_server.h"

namespace discserver {
namespace {

const std::string kSearch = "/freedb_search.php?words=paper+lanterns";

std::string Status(const std::string& answer) {
  return answer.substr(0, answer.find('\r')).substr(std::min<std::size_t>(9, answer.size()));
}

TEST(Server, IsAWebSiteAndAProxy) {
  DiscServer server;
  EXPECT_NE(server.Get(kSearch).find("id=47013c08"), std::string::npos);
  const std::string proxied = server.Ask("GET http://www.freedb.org" + kSearch + " HTTP/1.0\r\nHost: x\r\n\r\n");
  EXPECT_NE(proxied.find("<a href=\"http://www.freedb.org/freedb_search_fmt.php?cat=rock&id=47013c08\">"),
            proxied.npos);
  EXPECT_NE(server.Get("/~cddb/cddb.cgi?cmd=search&artist=&album=caf%C3%A9&hello=a+b+c+d&proto=6").find("Caf\u00E9"),
            std::string::npos);
  EXPECT_NE(server.Get("/ws/2/release?query=release:caf%C3%A9&fmt=json&limit=1").find("\"score\":100"),
            std::string::npos);
}

TEST(Server, AnswersWhatIsNoRequestAndGoesOn) {
  DiscServer server;
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
  for (const auto& [request, status] : kCases) EXPECT_EQ(Status(server.Ask(request)), status) << request.substr(0, 60);
  for (const std::string& bytes : {std::string("\r\n\r\n"), std::string(5000, '\0'), std::string("GET\r\n\r\n")}) {
    close(server.Open(bytes));
  }
  const std::string request = "GET " + kSearch + " HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n";
  for (std::size_t size = 0; size < request.size(); ++size) close(server.Open(request.substr(0, size)));
  EXPECT_EQ(Status(server.Ask(request)), "200 OK");
}

// Good clients are answered while others hang on, and while one at another address asks more than it lets be answered.
TEST(Server, BadClientsDisturbNoOther) {
  DiscServer server;
  std::vector<int> stalled;
  for (int i = 0; i < 64; ++i) stalled.push_back(server.Open("GET " + kSearch + " HTT"));
  std::atomic<bool> done = false;
  std::thread flood([&] {
    std::string requests;
    for (int i = 0; i < 1000; ++i) requests += "GET " + kSearch + " HTTP/1.1\r\nHost: a\r\n\r\n";
    while (!done) close(server.Open(requests, "127.0.0.2"));  // cut while they are answered
  });
  std::atomic<int> answered = 0;
  std::vector<std::thread> clients;
  for (int i = 0; i < 16; ++i) {
    clients.emplace_back([&] {
      for (int j = 0; j < 20; ++j) answered += server.Get(kSearch).find("id=47013c08") != std::string::npos;
    });
  }
  for (std::thread& client : clients) client.join();
  done = true;
  flood.join();
  for (const int connection : stalled) close(connection);
  EXPECT_EQ(answered, 16 * 20);
}

TEST(Server, EndsCleanlyAndTellsWhyItCannotBegin) {
  DiscServer server;
  TemporaryFolder folder;
  const std::string port = std::to_string(server.Port()), database = folder / "discs.db";
  EXPECT_EQ(Program({"serve", "--database", database}).Wait(), 1);  // there is none
  EXPECT_FALSE(std::filesystem::exists(database));
  EXPECT_EQ(Program({"import", "--database", database, TAGRIX_RECORDS}).Wait(), 0);
  EXPECT_EQ(Program({"serve", "--database", database, "--port", port}).Wait(), 1);  // it is taken
  EXPECT_EQ(Program({"serve", "--database", database, "--port", "x"}).Wait(), 2);
  EXPECT_EQ(Program({"import"}).Wait(), 2);
  const int open = server.Open("GET / HTTP/1.1\r\n");
  server.Process().Signal(SIGTERM);
  EXPECT_EQ(server.Process().Wait(), 0);
  close(open);
}

}  // namespace
}  // namespace discserver
