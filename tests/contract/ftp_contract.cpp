// What every FTP client port does: the in-memory twin, and Windows's Internet library with a real server.
#include <gtest/gtest.h>

#include "contract/ftp_cases.h"
#include "net/loopback_server.h"

namespace tagrix {
namespace {

template <typename Case>
class FtpContract : public testing::Test {
 protected:
  FtpContract() {
    case_.ftp.progress = [this](std::uint64_t done, std::uint64_t total) {
      EXPECT_LE(done_, done);
      done_ = done;
      total_ = total;
    };
    case_.ftp.ended = [this](bool complete) {
      ++ends_;
      complete_ = complete;
    };
  }

  void SetUp() override {
    if (!Case::HasServer()) GTEST_SKIP() << "No FTP server is there.";
  }

  std::wstring Start(const std::wstring& remoteFile) {
    ends_ = 0;
    done_ = total_ = 0;
    FtpRequest request = case_.request;
    request.remoteFolder = L"/ostrelco/files";
    request.remoteFile = remoteFile;
    request.localPath = case_.folder + L"\\local.bin";
    case_.ftp.Download(request);
    EXPECT_EQ(ends_, 0);
    return request.localPath;
  }
  // Lets events run for so long, or until the transfer has ended.
  bool Ends(std::uint64_t milliseconds = 10'000) {
    const auto start = case_.events.TickCount();
    while (ends_ == 0 && case_.events.TickCount() - start < milliseconds) {
      case_.events.Wait(100);
      case_.events.DoEvents();
    }
    return ends_ > 0;
  }
  // Downloads; nothing when it failed.
  std::string Fetch(const std::wstring& remoteFile) {
    const std::wstring path = Start(remoteFile);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(case_.Has(path), complete_);
    return complete_ ? case_.Content(path) : std::string();
  }

  Case case_;
  std::uint64_t done_ = 0, total_ = 0;
  int ends_ = 0;
  bool complete_ = false;
};

TYPED_TEST_SUITE(FtpContract, FtpCases);

TYPED_TEST(FtpContract, FetchesWholeFiles) {
  const std::string small = "[Tagrix]\r\nbuild=7\r\n", big(3'000'000, 'x');
  this->case_.Offer("/ostrelco/files/upd.dat", small);
  this->case_.Offer("/ostrelco/files/setup.exe", big);
  EXPECT_EQ(this->Fetch(L"upd.dat"), small);
  EXPECT_TRUE(this->Fetch(L"setup.exe") == big);
  EXPECT_EQ(this->done_, big.size());
  EXPECT_EQ(this->total_, big.size());
  EXPECT_EQ(this->Fetch(L"upd.dat"), small);  // takes the place of what was there
  EXPECT_FALSE(this->Ends(300) && this->ends_ > 1);
}

TYPED_TEST(FtpContract, MissingFilesFail) {
  this->Fetch(L"missing.dat");
  EXPECT_FALSE(this->complete_);
}

TYPED_TEST(FtpContract, NothingFollowsClose) {
  this->case_.Offer("/ostrelco/files/setup.exe", std::string(8'000'000, 'x'));
  const std::wstring path = this->Start(L"setup.exe");
  this->case_.events.Wait(50);
  this->case_.ftp.Close();
  EXPECT_FALSE(this->case_.Has(path));
  EXPECT_FALSE(this->Ends(500));
  EXPECT_FALSE(this->case_.Has(path));
}

#ifdef _WIN32

// A server that answers like one should, until it comes to the data.
class ScriptedFtp {
 public:
  ScriptedFtp(std::function<void(Peer&)> sendData, std::string farewell, std::string greeting = "220 ready")
      : farewell_(std::move(farewell)),
        greeting_(std::move(greeting)),
        data_(std::move(sendData)),
        control_([this](Peer& peer) { Converse(peer); }) {}
  int Port() const { return control_.Port(); }

 private:
  void Converse(Peer& peer) {
    peer.Write(greeting_ + "\r\n");
    while (true) {
      const std::string line = peer.ReadTo("\r\n");
      if (line.size() < 4) return;
      peer.Write(Answer(line.substr(0, 4)) + "\r\n");
    }
  }
  std::string Answer(const std::string& command) {
    if (command == "USER") return "331 password";
    if (command == "PASS") return "230 welcome";
    if (command == "CWD ") return "250 changed";
    if (command == "SIZE") return "213 100000";
    if (command == "EPSV") return "500 unknown";
    if (command == "RETR") return "150 opening (100000 bytes)\r\n" + farewell_;
    if (command == "PASV") {
      const int port = data_.Port();
      return "227 passive (127,0,0,1," + std::to_string(port / 256) + "," + std::to_string(port % 256) + ")";
    }
    return "200 fine";
  }

  std::string farewell_, greeting_;
  LoopbackServer data_, control_;
};

class FtpTroubles : public FtpContract<WinFtpCase> {
 protected:
  void SetUp() override {}
  // Downloads from a server of the test's own.
  void FetchFrom(int port) {
    case_.request.host = L"127.0.0.1";
    case_.request.port = port;
    Fetch(L"setup.exe");
  }
};

TEST_F(FtpTroubles, WrongPasswordsAndRefusalsFail) {
  if (WinFtpCase::HasServer()) {
    case_.request.password = L"wrong";
    FetchFrom(case_.request.port);
    EXPECT_FALSE(complete_);
  }
  FetchFrom(RefusedPort());
  EXPECT_FALSE(complete_);
}

TEST_F(FtpTroubles, ACutTransferIsNotComplete) {
  const ScriptedFtp server([](Peer& peer) { peer.Write(std::string(50'000, 'x')); }, "426 cut");
  FetchFrom(server.Port());
  EXPECT_FALSE(complete_);
}

TEST_F(FtpTroubles, ATransferAsLongAsAnnouncedIsComplete) {
  const ScriptedFtp server([](Peer& peer) { peer.Write(std::string(100'000, 'x')); }, "226 done");
  FetchFrom(server.Port());
  EXPECT_TRUE(complete_);
  EXPECT_EQ(done_, 100'000U);
}

TEST_F(FtpTroubles, AStalledTransferIsGivenUp) {
  const ScriptedFtp server(
      [](Peer& peer) {
        peer.Write(std::string(50'000, 'x'));
        peer.ReadAll();
      },
      "226 done");
  FetchFrom(server.Port());
  EXPECT_FALSE(complete_);
}

TEST_F(FtpTroubles, NonsenseFails) {
  const ScriptedFtp server([](Peer&) {}, "", std::string(3000, '\xFF'));
  FetchFrom(server.Port());
  EXPECT_FALSE(complete_);
}

#endif

}  // namespace
}  // namespace tagrix
