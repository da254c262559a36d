// What every TCP socket port does: the in-memory twin, and Windows's own.
#include <functional>

#include "contract/cases.h"

namespace tagrix {
namespace {

constexpr std::string_view kRequest = "GET / HTTP/1.0\r\n\r\n";

// Bytes in which a lost, doubled or swapped piece shows.
std::string Numbered(size_t size) {
  std::string text;
  for (int n = 0; text.size() < size; ++n) text += std::to_string(n) + " ";
  return text;
}

class SocketContract : public testing::Test {
 protected:
  SocketContract() {
    case_.socket.dataArrival = [this] {
      EXPECT_EQ(case_.socket.State(), SocketState::Connected);
      received_ += case_.socket.GetData();
    };
    case_.socket.sendComplete = [this] { ++sends_; };
  }

  // Lets events run until the condition holds; false when that takes far too long. A wait that doesn't end with the
  // event that it waits for makes it fail.
  bool Until(const std::function<bool()>& condition) {
    const auto start = case_.events.TickCount();
    while (!condition()) {
      if (case_.events.TickCount() - start > 10'000) return false;
      case_.events.Wait(20'000);
      case_.events.DoEvents();
    }
    return true;
  }
  bool Reaches(SocketState state) {
    return Until([&] { return case_.socket.State() == state; });
  }
  bool Connects(const std::wstring& host, int port) {
    case_.socket.Connect(host, port);
    return Reaches(SocketState::Connected);
  }
  // Connects and sends a request, to which the server gives the answer.
  bool Asks(const std::string& answer, bool close) {
    if (!Connects(L"127.0.0.1", case_.Serve(answer, close))) return false;
    case_.socket.SendData(kRequest);
    return true;
  }
  void ExpectStaysClosed() {
    for (int round = 0; round < 5; ++round) {
      EXPECT_EQ(case_.socket.State(), SocketState::Closed);
      case_.events.Wait(10);
      case_.events.DoEvents();
    }
  }

  SocketCase case_;
  std::string received_;
  int sends_ = 0;
};

TEST_F(SocketContract, ConnectsOnlyWhileEventsRun) {
  auto& socket = case_.socket;
  EXPECT_EQ(socket.State(), SocketState::Closed);
  socket.Connect(L"127.0.0.1", case_.Refuse());
  socket.Connect(L"127.0.0.1", case_.Serve("hello", true));  // ends the former attempt
  EXPECT_TRUE(socket.State() == SocketState::ResolvingHost || socket.State() == SocketState::Connecting);
  EXPECT_TRUE(Reaches(SocketState::Connected));
  socket.Connect(L"127.0.0.1", case_.Refuse());
  EXPECT_TRUE(Reaches(SocketState::Error));
  socket.SendData("x");
  EXPECT_EQ(socket.GetData(), "");
  socket.Close();
  EXPECT_EQ(socket.State(), SocketState::Closed);
}

TEST_F(SocketContract, AnswersArriveWholeBeforeTheEnd) {
  for (const size_t size : {size_t{1}, size_t{5'000'000}}) {
    const std::string answer = Numbered(size);
    received_.clear();
    ASSERT_TRUE(Asks(answer, true));
    ASSERT_TRUE(Reaches(SocketState::PeerClosing));
    EXPECT_TRUE(received_ == answer) << received_.size() << " of " << answer.size();
    EXPECT_EQ(case_.socket.GetData(), "");
  }
  EXPECT_EQ(sends_, 2);
}

TEST_F(SocketContract, WhatIsNotTakenStays) {
  case_.socket.dataArrival = nullptr;
  ASSERT_TRUE(Asks("hello", true));
  ASSERT_TRUE(Reaches(SocketState::PeerClosing));
  EXPECT_EQ(case_.socket.GetData(), "hello");
  EXPECT_EQ(case_.socket.GetData(), "");
}

TEST_F(SocketContract, ClosingEndsAllAndAnotherConnectionStartsAfresh) {
  ASSERT_TRUE(Asks(Numbered(3'000'000), false));
  ASSERT_TRUE(Until([&] { return !received_.empty(); }));
  case_.socket.Close();
  received_.clear();
  EXPECT_EQ(case_.socket.GetData(), "");
  ExpectStaysClosed();
  EXPECT_EQ(received_, "");

  ASSERT_TRUE(Asks("fresh", true));
  ASSERT_TRUE(Reaches(SocketState::PeerClosing));
  EXPECT_EQ(received_, "fresh");

  case_.socket.dataArrival = [this] { case_.socket.Close(); };
  ASSERT_TRUE(Asks("hello", true));
  ASSERT_TRUE(Reaches(SocketState::Closed));
  ExpectStaysClosed();
}

#ifdef _WIN32

TEST_F(SocketContract, SendsMoreThanFitsAtOnceAndEndsWhenCutOff) {
  const std::string upload = Numbered(5'000'000) + "\r\n\r\n";
  std::string arrived;
  LoopbackServer server([&](Peer& peer) {
    arrived = peer.ReadTo("\r\n\r\n");
    peer.Write("thanks");
    peer.ReadTo("\r\n\r\n");
    peer.Reset();
  });
  ASSERT_TRUE(Connects(L"127.0.0.1", server.Port()));
  case_.socket.SendData(std::string_view(upload).substr(0, 1'000'000));
  case_.socket.SendData(std::string_view(upload).substr(1'000'000));
  ASSERT_TRUE(Until([&] { return received_ == "thanks"; }));
  EXPECT_TRUE(arrived == upload) << arrived.size() << " of " << upload.size();
  EXPECT_GE(sends_, 1);
  case_.socket.SendData(kRequest);
  EXPECT_TRUE(Until([&] { return case_.socket.State() >= SocketState::PeerClosing; }));
}

TEST_F(SocketContract, TriesEveryAddressOfAName) {
  case_.socket.Connect(L"", 80);
  EXPECT_TRUE(Reaches(SocketState::Error));
  case_.socket.Connect(L"localhost", RefusedPort());
  EXPECT_TRUE(Reaches(SocketState::Error));
  if (gethostbyname("localhost") == nullptr) GTEST_SKIP() << "no address of \"localhost\" here";
  ASSERT_TRUE(Connects(L"localhost", case_.Serve("hello", true)));  // listens on 127.0.0.1 only
  case_.socket.SendData(kRequest);
  ASSERT_TRUE(Reaches(SocketState::PeerClosing));
  EXPECT_EQ(received_, "hello");
}

#endif

}  // namespace
}  // namespace tagrix
