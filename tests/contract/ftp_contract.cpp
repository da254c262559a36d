// What every FTP client port does: the in-memory twin, and Windows's Internet library with a real server.
#include <utility>

#include "contract/cases.h"

namespace tagrix {
namespace {

class FtpContract : public testing::Test {
 protected:
  FtpContract() { Use(case_.ftp); }

  void Use(FtpClient& client) {
    client.progress = [this](std::uint64_t done, std::uint64_t total) {
      EXPECT_LE(done_, done);
      done_ = done;
      total_ = total;
    };
    client.ended = [this](bool complete) {
      EXPECT_FALSE(std::exchange(ended_, true));
      complete_ = complete;
    };
    client_ = &client;
  }

  void Start(const std::wstring& remoteFile) {
    ended_ = false;
    done_ = total_ = 0;
    FtpRequest request = case_.request;
    request.remoteFolder = L"/ostrelco/files";
    request.remoteFile = remoteFile;
    request.localPath = path_;
    request.limit = limit_;
    client_->Download(request);
    EXPECT_FALSE(ended_);
  }
  // Lets events run for so long, or until the transfer has ended.
  bool Ends(std::uint64_t milliseconds = 60'000) {
    return Until(
        case_.events, [this] { return ended_; }, milliseconds);
  }
  bool HasLocal() { return case_.files.Find(path_).has_value(); }
  // Downloads; nothing when it failed.
  std::string Fetch(const std::wstring& remoteFile) {
    Start(remoteFile);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(HasLocal(), complete_);
    return complete_ ? ReadWholeFile(case_.files, path_) : std::string();
  }

  FtpCase case_;
  FtpClient* client_ = nullptr;
  const std::wstring path_ = case_.folder + L"\\local.bin";
  std::uint64_t done_ = 0, total_ = 0;
  std::uint64_t limit_ = 0;
  bool ended_ = false, complete_ = false;
};

TEST_F(FtpContract, FetchesWholeFilesOrNothing) {
  const std::string small = "[Tagrix]\r\nbuild=7\r\n", big(3'000'000, 'x');
  case_.Offer("/ostrelco/files/upd.dat", small);
  case_.Offer("/ostrelco/files/setup.exe", big);
  EXPECT_TRUE(Fetch(L"setup.exe") == big);
  EXPECT_EQ(done_, big.size());
  EXPECT_EQ(total_, big.size());
  EXPECT_EQ(Fetch(L"upd.dat"), small);  // takes the place of what was there
  case_.files.Delete(path_);
  EXPECT_EQ(Fetch(L"missing.dat"), "");
  limit_ = big.size() - 1;
  EXPECT_EQ(Fetch(L"setup.exe"), "");
  EXPECT_LE(done_, limit_);
  limit_ = big.size();
  EXPECT_TRUE(Fetch(L"setup.exe") == big);
}

#ifdef _WIN32

TEST_F(FtpContract, FailsWhereTheServerDoes) {
  case_.Offer("/ostrelco/files/short.exe", std::string(50'000, 'x'));
  EXPECT_EQ(Fetch(L"short.exe"), "");
  EXPECT_EQ(done_, 50'000u);
  EXPECT_EQ(total_, 100'000u);
  case_.Offer("/ostrelco/files/long.exe", std::string(500'000, 'x'));
  EXPECT_EQ(Fetch(L"long.exe"), "");
  EXPECT_LE(done_, 250'000u);
  EXPECT_EQ(total_, 250'000u);
  case_.request.password = L"wrong";
  EXPECT_EQ(Fetch(L"short.exe"), "");
  case_.request.port = SocketCase::RefusingPort();
  EXPECT_EQ(Fetch(L"short.exe"), "");
}

TEST_F(FtpContract, GivesUpAServerThatFallsSilent) {
  case_.Offer("/ostrelco/files/stalled.exe", std::string(50'000, 'x'));
  WinFtpClient impatient(1);
  Use(impatient);
  EXPECT_EQ(Fetch(L"stalled.exe"), "");
}

#endif

TEST_F(FtpContract, CloseEndsAtOnceWhatRunsAndWhatWaitsForAnAnswer) {
  case_.Offer("/ostrelco/files/setup.exe", std::string(8'000'000, 'x'));
  Start(L"setup.exe");
  case_.events.Wait(50);
  case_.ftp.Close();
  EXPECT_FALSE(Ends(200));
  EXPECT_FALSE(HasLocal());
  case_.Offer("/ostrelco/files/upd.dat", "build=7");
  Start(L"setup.exe");
  EXPECT_EQ(Fetch(L"upd.dat"), "build=7");  // ends the former, which doesn't disturb it
  case_.files.Delete(path_);
  case_.Silence();
  Start(L"upd.dat");
  EXPECT_FALSE(Ends(300));
  const auto start = case_.events.TickCount();
  case_.ftp.Close();
  EXPECT_LT(case_.events.TickCount() - start, 500U);
  EXPECT_FALSE(Ends(300));
  EXPECT_FALSE(HasLocal());
}

}  // namespace
}  // namespace tagrix
