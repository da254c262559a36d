#include "freedb/gnudb.h"

#include <gtest/gtest.h>

#include "core/long_work.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

constexpr const char* kPlain = "HTTP/1.1 200 OK\r\nContent-Type: text/plain; charset=UTF-8\r\n\r\n";
constexpr const char* kList = "200 Found 2 matches, list follows (until terminating `.')\r\n";

struct Gnudb : testing::Test, TestContext {
  Gnudb() {
    socket.serve = [this](const std::string& request) {
      asked.push_back(request.substr(0, request.find(" HTTP/1.0")));
      return answer;
    };
  }
  SourceReply Search(const std::wstring& words, bool any = false) {
    hits.clear();
    LongWork work(context);
    return source.Search(
        {words, any}, [&](std::vector<DiscHit> more) { hits.insert(hits.end(), more.begin(), more.end()); }, work);
  }
  std::optional<Disc> Read(SourceReply& reply) {
    std::optional<Disc> disc;
    LongWork work(context);
    reply = source.Read({L"A / B", L"rock", L"47013c08"}, disc, work);
    return disc;
  }

  std::string answer;
  std::vector<std::string> asked;
  std::vector<DiscHit> hits;
  HttpClient http{{socket, events, codePage, context.settings}};
  GnudbSource source{http, codePage, context.settings};
};

TEST_F(Gnudb, AsksForArtistAndAlbumAndNamesItsUser) {
  const std::string server = "GET http://gnudb.gnudb.org/~cddb/cddb.cgi?cmd=";
  const std::string hello = "&hello=Orvin+www.tagrix.example+Tagrix+1.0.0&proto=6";
  answer = kPlain + std::string("202 No match found.\r\n");
  const struct {
    const wchar_t* words;
    bool any;
    std::vector<std::string> searches;
  } table[] = {
      {L"Sigur Rós", false, {"artist=Sigur+R%C3%B3s&album=Sigur+R%C3%B3s"}},
      {L"AC/DC - Who & Why? - II", false, {"artist=AC%2FDC&album=Who+%26+Why%3F+-+II"}},
      {L"東 - 京\U0001D11E", true, {"artist=%E6%9D%B1&album=", "artist=&album=%E4%BA%AC%F0%9D%84%9E"}},
      {L"hits", true, {"artist=hits&album=", "artist=&album=hits"}},
  };
  for (const auto& [words, any, searches] : table) {
    asked.clear();
    EXPECT_EQ(Search(words, any).answer, Answer::Given);
    std::vector<std::string> expected;
    for (const std::string& search : searches) {
      expected.push_back(std::string(server).append("search&").append(search).append(hello));
    }
    EXPECT_EQ(asked, expected);
    EXPECT_TRUE(hits.empty());
  }
  context.settings.Put(setting::kContact, L" jo+cd@home.example ");
  SourceReply reply;
  Read(reply);
  EXPECT_EQ(asked.back(), server + "cddb+read+rock+47013c08&hello=jo%2Bcd+home.example+Tagrix+1.0.0&proto=6");
}

TEST_F(Gnudb, ListsHitsAndWidensWithoutRepeatingThem) {
  answer = kPlain + std::string(kList) +
           "rock 47013C08 AC/DC / \xE6\x9D\xB1\xE4\xBA\xAC\r\njazz 2404fc04 Caf\xE9 / Latin\nfor 47 no disc\r\n.\r\n";
  for (const bool any : {false, true}) {
    EXPECT_EQ(Search(L"words", any).answer, Answer::Given);
    EXPECT_EQ(hits,
              (std::vector<DiscHit>{{L"AC/DC / 東京", L"rock", L"47013C08"}, {L"Café / Latin", L"jazz", L"2404fc04"}}));
  }
  EXPECT_EQ(asked.size(), 3u);
}

TEST_F(Gnudb, ReadsARecordWithItsLongLinesJoined) {
  const std::string record =
      "DTITLE=AC/DC / \xE6\x9D\xB1\r\nDTITLE=\xE4\xBA\xAC\r\nDYEAR=1998\r\nDGENRE=Rock\r\n"
      "TTITLE0=a=\xC3\xA9\r\nTTITLE1=Caf\xE9\r\nTTITLE1= again\r\nEXTD=\r\n";
  answer = kPlain + std::string("210 rock 47013c08\r\n") + record + ".\r\n";
  SourceReply reply;
  const auto disc = Read(reply);
  EXPECT_EQ(disc, (Disc{L"AC/DC", L"東京", L"rock", L"1998", {{L"a=é"}, {L"Café again"}}}));
  // Cut at any byte before the "." it is no record.
  for (std::size_t size = answer.rfind('.'); size > std::string_view(kPlain).size(); --size) {
    answer.resize(size);
    EXPECT_FALSE(Read(reply)) << size;
    EXPECT_EQ(reply.answer, Answer::Refused) << size;
  }
}

TEST_F(Gnudb, TakesNoRefusalForADisc) {
  const std::string prose = "Please register your client and name a contact address.\r\nSee our pages.";
  const std::string page = "<html><body>200 Found: sign in!\r\n.\r\n</body></html>";
  const struct {
    std::string answer;
    std::wstring words;
  } table[] = {
      {kPlain + prose, Widen(prose)},
      {kPlain + std::string(kList) + "please register now, client\r\n.\r\n",
       L"200 Found 2 matches, list follows (until terminating `.')\r\nplease register now, client\r\n.\r\n"},
      {kPlain + std::string(kList) + "rock 47013c08 A / B\r\nrock 47013c09 A /", L""},
      {kPlain + page, L""},
      {kPlain + std::string("530 Server error, \xC3\xA9t\xC3\xA9.\r\n"), L"530 Server error, été.\r\n"},
      {kPlain + std::string(2000, 'x'), std::wstring(1000, L'x')},
      {"HTTP/1.1 503 Slow down\r\nRetry-After: 9\r\n\r\n" + page, L"503 Slow down"},
      {"HTTP/1.1 403 Forbidden\r\n\r\n" + prose, Widen(prose)},
      {"HTTP/1.1 301 Moved\r\nLocation: https://x/\r\n\r\n", L"301 Moved"},
      {"HTTP/1.1 404 Not Found\n\nbare line feeds", L"404 Not Found"},
  };
  for (const auto& expected : table) {
    answer = expected.answer;
    const SourceReply searched = Search(L"words");
    EXPECT_EQ(searched.answer, Answer::Refused) << answer;
    EXPECT_EQ(searched.words, expected.words) << answer;
    EXPECT_TRUE(hits.empty()) << answer;
  }
  answer = kPlain + std::string("401 No.\r\n");
  SourceReply reply;
  EXPECT_FALSE(Read(reply));
  EXPECT_EQ(reply.answer, Answer::Refused);
  EXPECT_EQ(reply.words, L"401 No.\r\n");
}

TEST_F(Gnudb, TellsNotReachedFromCancelled) {
  socket.closeAfterAnswer = false;
  answer = kPlain;
  events.eachTime = [&] {
    if (!asked.empty()) CancelWork(context);
  };
  EXPECT_EQ(Search(L"words", true).answer, Answer::Cancelled);
  EXPECT_EQ(asked.size(), 1u);
  EXPECT_EQ(socket.State(), SocketState::Closed);
  asked.clear();
  socket.serve = nullptr;
  EXPECT_EQ(Search(L"words").answer, Answer::NotReached);
}

}  // namespace
}  // namespace tagrix
