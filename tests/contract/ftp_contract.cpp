// What every FTP client port does: the in-memory twin, and Windows's Internet library with a real server.
#include "contract/cases.h"

namespace tagrix {
namespace {

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

  void Start(const std::wstring& remoteFile) {
    ends_ = 0;
    done_ = total_ = 0;
    FtpRequest request = case_.request;
    request.remoteFolder = L"/ostrelco/files";
    request.remoteFile = remoteFile;
    request.localPath = path_;
    case_.ftp.Download(request);
    EXPECT_EQ(ends_, 0);
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
  bool HasLocal() { return case_.files.Find(path_).has_value(); }
  // Downloads; nothing when it failed.
  std::string Fetch(const std::wstring& remoteFile) {
    Start(remoteFile);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(HasLocal(), complete_);
    return complete_ ? Content(case_.files, path_) : std::string();
  }

  FtpCase case_;
  const std::wstring path_ = case_.folder + L"\\local.bin";
  std::uint64_t done_ = 0, total_ = 0;
  int ends_ = 0;
  bool complete_ = false;
};

TEST_F(FtpContract, FetchesWholeFilesOrNothing) {
  if (!FtpCase::HasServer()) GTEST_SKIP() << "No FTP server is there.";
  const std::string small = "[Tagrix]\r\nbuild=7\r\n", big(3'000'000, 'x');
  case_.Offer("/ostrelco/files/upd.dat", small);
  case_.Offer("/ostrelco/files/setup.exe", big);
  EXPECT_EQ(Fetch(L"upd.dat"), small);
  EXPECT_TRUE(Fetch(L"setup.exe") == big);
  EXPECT_EQ(done_, big.size());
  EXPECT_EQ(total_, big.size());
  EXPECT_EQ(Fetch(L"upd.dat"), small);  // takes the place of what was there
  ends_ = 0;
  EXPECT_FALSE(Ends(300));
  case_.files.Delete(path_);
  Fetch(L"missing.dat");
  EXPECT_FALSE(complete_);
}

TEST_F(FtpContract, NothingFollowsClose) {
  if (!FtpCase::HasServer()) GTEST_SKIP() << "No FTP server is there.";
  case_.Offer("/ostrelco/files/setup.exe", std::string(8'000'000, 'x'));
  Start(L"setup.exe");
  case_.events.Wait(50);
  case_.ftp.Close();
  EXPECT_FALSE(HasLocal());
  EXPECT_FALSE(Ends(500));
  EXPECT_FALSE(HasLocal());
}

#ifdef _WIN32

// A server that answers like one should, until it comes to the data.
class ScriptedFtp {
 public:
  ScriptedFtp(std::function<void(Peer&)> sendData, std::string farewell, std::string greeting)
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

TEST_F(FtpContract, WrongPasswordsAndRefusalsFail) {
  case_.request.password = L"wrong";
  if (!FtpCase::HasServer()) case_.request.port = RefusedPort();
  EXPECT_EQ(Fetch(L"setup.exe"), "");
  case_.request.port = RefusedPort();
  EXPECT_EQ(Fetch(L"setup.exe"), "");
}

TEST_F(FtpContract, ATransferIsCompleteWhenItIsAsLongAsAnnounced) {
  const struct {
    const char* what;
    size_t length;
    bool stays;
    const char *farewell, *greeting;
  } servers[] = {
      {"complete", 100'000, false, "226 done", "220 ready"},
      {"cut", 50'000, false, "426 cut", "220 ready"},
      {"cut without a word", 50'000, false, "226 done", "220 ready"},
      {"stalled", 50'000, true, "226 done", "220 ready"},
      {"nonsense", 0, false, "", "\xFF\xFF\xFF\xFF"},
  };
  for (const auto& [what, length, stays, farewell, greeting] : servers) {
    SCOPED_TRACE(what);
    const ScriptedFtp server(
        [length = length, stays = stays](Peer& peer) {
          peer.Write(std::string(length, 'x'));
          if (stays) peer.ReadTo("");
        },
        farewell, greeting);
    case_.request.port = server.Port();
    EXPECT_EQ(Fetch(L"setup.exe").size(), length == 100'000 ? length : 0);
  }
}

#endif

}  // namespace
}  // namespace tagrix
