// What every TCP socket port does: the in-memory twin, and Windows's own.
#include <functional>
#include <utility>

#include "contract/cases.h"

namespace tagrix {
namespace {

// A request that begins with the word, as long as that; a lost, doubled or swapped piece shows.
std::string Request(std::string text, size_t size = 0) {
  for (int n = 0; text.size() < size; ++n) text.append(std::to_string(n)).append(50, ' ');
  return text + "\r\n\r\n";
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
      if (case_.events.TickCount() - start > 30'000) return false;
      case_.events.Wait(40'000);
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
  // Connects and sends a request.
  bool Asks(const std::string& request) {
    if (!Connects(L"127.0.0.1", case_.EchoingPort())) return false;
    case_.socket.SendData(request);
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
  socket.Connect(L"127.0.0.1", case_.RefusingPort());
  socket.Connect(L"127.0.0.1", case_.EchoingPort());  // ends the former attempt
  EXPECT_TRUE(socket.State() == SocketState::ResolvingHost || socket.State() == SocketState::Connecting);
  EXPECT_TRUE(Reaches(SocketState::Connected));
  socket.Connect(L"127.0.0.1", case_.RefusingPort());
  EXPECT_TRUE(Reaches(SocketState::Error));
  socket.SendData("x");
  EXPECT_EQ(socket.GetData(), "");
  socket.Close();
  EXPECT_EQ(socket.State(), SocketState::Closed);
}

TEST_F(SocketContract, AllArrivesThereAndBackBeforeTheEnd) {
  for (const size_t size : {size_t{1}, size_t{5'000'000}}) {
    const std::string request = Request("close", size);
    received_.clear();
    ASSERT_TRUE(Asks(request));
    ASSERT_TRUE(Reaches(SocketState::PeerClosing));
    EXPECT_TRUE(received_ == request) << received_.size() << " of " << request.size();
    EXPECT_EQ(case_.socket.GetData(), "");
  }
  EXPECT_EQ(sends_, 2);
}

TEST_F(SocketContract, ClosingEndsAllAndAnotherConnectionStartsAfresh) {
  bool arrived = false;  // and not taken
  const auto take = std::exchange(case_.socket.dataArrival, [&] { arrived = true; });
  ASSERT_TRUE(Asks(Request("stay", 3'000'000)));
  ASSERT_TRUE(Until([&] { return arrived; }));
  case_.socket.Close();
  case_.socket.dataArrival = take;
  EXPECT_EQ(case_.socket.GetData(), "");
  ExpectStaysClosed();
  EXPECT_EQ(received_, "");

  const std::string request = Request("close");
  ASSERT_TRUE(Asks(request));
  ASSERT_TRUE(Reaches(SocketState::PeerClosing));
  EXPECT_EQ(received_, request);

  case_.socket.dataArrival = [this] { case_.socket.Close(); };
  ASSERT_TRUE(Asks(request));
  ASSERT_TRUE(Reaches(SocketState::Closed));
  ExpectStaysClosed();
}

#ifdef _WIN32

TEST_F(SocketContract, GoesOnSendingUntilItIsCutOff) {
  const std::string request = Request("late", 5'000'000);
  ASSERT_TRUE(Asks(request.substr(0, 1'000'000)));
  case_.socket.SendData(std::string_view(request).substr(1'000'000));
  ASSERT_TRUE(Until([&] { return received_.size() >= request.size(); }));
  EXPECT_TRUE(received_ == request);
  case_.socket.SendData(Request("reset"));
  EXPECT_TRUE(Until([&] { return case_.socket.State() >= SocketState::PeerClosing; }));
}

TEST_F(SocketContract, FindsWhatNoNoticeTells) {
  const std::string request = Request("late");
  ASSERT_TRUE(Asks(request));
  ASSERT_TRUE(Until([&] { return sends_ > 0; }));
  for (int round = 0; round < 100; ++round) {  // meanwhile the answer comes, and its notice is lost
    MSG notice;
    while (PeekMessageW(&notice, nullptr, WM_APP, 0xBFFF, PM_REMOVE)) continue;
    case_.events.Wait(10);
  }
  EXPECT_EQ(received_, "");
  EXPECT_TRUE(Until([&] { return received_ == request; }));
}

TEST_F(SocketContract, TriesEveryAddressOfAName) {
  case_.socket.Connect(L"", 80);
  EXPECT_TRUE(Reaches(SocketState::Error));
  case_.socket.Connect(L"localhost", case_.RefusingPort());
  EXPECT_TRUE(Reaches(SocketState::Error));
  if (gethostbyname("localhost") == nullptr) GTEST_SKIP() << "no address of \"localhost\" here";
  EXPECT_TRUE(Connects(L"localhost", case_.EchoingPort()));  // listens on 127.0.0.1 only
}

#endif

}  // namespace
}  // namespace tagrix
