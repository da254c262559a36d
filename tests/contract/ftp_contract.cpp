// What every FTP client port does: the in-memory twin, and Windows's Internet library with a real server.
#include <map>

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

TEST_F(FtpContract, WrongPasswordsAndRefusalsFail) {
  case_.request.password = L"wrong";
  if (!FtpCase::HasServer()) case_.request.port = RefusedPort();
  EXPECT_EQ(Fetch(L"setup.exe"), "");
  case_.request.port = RefusedPort();
  EXPECT_EQ(Fetch(L"setup.exe"), "");
}

// Servers that answer like one should, until it comes to the data.
TEST_F(FtpContract, ATransferIsCompleteWhenItIsAsLongAsAnnounced) {
  const struct {
    size_t length;
    bool stays;
    std::string farewell, greeting;
  } servers[] = {{100'000, false, "226 done", "220 ready"},
                 {50'000, false, "426 cut", "220 ready"},
                 {50'000, false, "226 done", "220 ready"},
                 {50'000, true, "226 done", "220 ready"},  // stalls
                 {0, false, "", std::string(3000, '\xFF')}};
  for (const auto& server : servers) {
    SCOPED_TRACE(std::to_string(server.length) + " bytes, " + server.farewell + (server.stays ? ", stalls" : ""));
    const LoopbackServer data([&](Peer& peer) {
      peer.Write(std::string(server.length, 'x'));
      if (server.stays) peer.ReadTo("");
    });
    const std::string port = std::to_string(data.Port() / 256) + "," + std::to_string(data.Port() % 256);
    const std::map<std::string, std::string> answers = {{"USER", "331 password"},
                                                        {"PASS", "230 welcome"},
                                                        {"SIZE", "213 100000"},
                                                        {"EPSV", "500 unknown"},
                                                        {"PASV", "227 passive (127,0,0,1," + port + ")"},
                                                        {"RETR", "150 opening (100000 bytes)\r\n" + server.farewell}};
    const LoopbackServer control([&](Peer& peer) {
      peer.Write(server.greeting + "\r\n");
      for (std::string line; (line = peer.ReadTo("\r\n")).size() >= 4;) {
        const auto found = answers.find(line.substr(0, 4));
        peer.Write((found == answers.end() ? "250 fine" : found->second) + "\r\n");
      }
    });
    case_.request.port = control.Port();
    EXPECT_EQ(Fetch(L"setup.exe").size(), server.length == 100'000 ? server.length : 0);
  }
}

#endif

}  // namespace
}  // namespace tagrix
