#include "fakes/fakes.h"

#include "core/messages.h"

namespace tagrix {
namespace {

// What bytes 0x80 to 0x9F stand for.
constexpr std::wstring_view kFrom80 =
    L"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    L"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";

}  // namespace

std::string FakeCodePage::ToBytes(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const wchar_t c : text) {
    const auto from80 = c < 0x80 ? kFrom80.npos : kFrom80.find(c);
    bytes += static_cast<char>(from80 != kFrom80.npos ? from80 + 0x80 : c < 256 ? static_cast<size_t>(c) : L'?');
  }
  return bytes;
}

std::wstring FakeCodePage::ToText(std::string_view bytes) {
  std::wstring text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += byte >= 0x80 && byte < 0xA0 ? kFrom80[byte - 0x80] : static_cast<wchar_t>(byte);
  }
  return text;
}

void FakeEvents::DoEvents() {
  ++rounds;
  for (auto pending = queue_.size(); pending > 0 && !queue_.empty(); --pending) {
    const auto event = std::move(queue_.front());
    queue_.pop_front();
    event();
  }
  if (eachTime) eachTime();
}

std::unique_ptr<Process> FakeShell::Start(const std::wstring& program, const std::wstring& commandLine) {
  struct FakeProcess : Process {
    explicit FakeProcess(int& left) : left_(left) {}
    bool Running() override { return left_-- > 0; }
    int& left_;
  };
  programs.push_back(program);
  commandLines.push_back(commandLine);
  if (!canStart) return nullptr;
  return std::make_unique<FakeProcess>(runsFor);
}

bool FakePrompts::Question(const std::wstring& text) {
  questions.push_back(text);
  if (answers.empty()) return true;
  const bool answer = answers.front();
  answers.pop_front();
  return answer;
}

void FakePrompts::ShowModal(Form& dialog) {
  shown.push_back(dialog.name);
  if (dialog.shown) dialog.shown();
  if (!dialogs.empty()) {
    const auto work = std::move(dialogs.front());
    dialogs.pop_front();
    work(dialog);
  }
  if (dialog.closed) dialog.closed();
}

void FakeSocket::Later(std::function<void()> event) {
  events_.Post([this, connection = connection_, event = std::move(event)] {
    if (connection == connection_) event();
  });
}

void FakeSocket::Connect(const std::wstring& toHost, int toPort) {
  Close();
  host = toHost;
  port = toPort;
  state_ = SocketState::ResolvingHost;
  Later([this] {
    state_ = SocketState::Connecting;
    Later([this] { state_ = serve ? SocketState::Connected : SocketState::Error; });
  });
}

void FakeSocket::Close() {
  ++connection_;
  state_ = SocketState::Closed;
  received_.clear();
}

void FakeSocket::SendData(std::string_view bytes) {
  if (state_ != SocketState::Connected) return;
  requests.emplace_back(bytes);
  Later([this, request = std::string(bytes)] {
    if (sendComplete) sendComplete();
    received_ += serve(request);
    if (!received_.empty() && dataArrival) dataArrival();
    if (closeAfterAnswer && state_ == SocketState::Connected) {
      Later([this] { state_ = SocketState::PeerClosing; });
    }
  });
}

void FakeFtp::Download(const FtpRequest& request) {
  requests.push_back(request);
  if (stall) return;
  events_.Post([this, request, transfer = ++transfer_] {
    if (transfer != transfer_) return;
    const auto found = remote.find(request.remoteFolder + L"/" + request.remoteFile);
    const bool whole = found != remote.end() && (request.limit == 0 || found->second.size() <= request.limit);
    if (whole) {
      files_.Put(request.localPath, found->second);
      if (progress) progress(found->second.size(), found->second.size());
    }
    if (ended) ended(whole);
  });
}

TestContext::TestContext() {
  constexpr int kMore = 100;
  for (int n = 0; n < message::kCount; ++n) context.language.lng_lst.push_back(TestText(n));
  for (int n = 0; n < kMore; ++n) context.language.more.push_back(TestText(message::kFirstMore + n));
}

std::wstring TestText(int n) {
  static const std::map<int, std::wstring> placeholders = {{message::kRenameFailed, L" %%FIC%%"},
                                                           {message::kContactingSource, L" %%1%%"},
                                                           {message::kNotReached, L" %%1%%"},
                                                           {message::kRefused, L" %%1%% %%2%%"},
                                                           {message::kNoDiscAnswer, L" %%1%%"},
                                                           {message::kReadOnly, L" %%1%%"},
                                                           {message::kNewVersion, L" %%1%%"},
                                                           {message::kDownloadComplete, L" %%1%%"},
                                                           {message::kInstallerNotStarted, L" %%1%%"},
                                                           {message::kAuthors, L" %%1%%"},
                                                           {message::kVerdictFileMissing, L" %%1%%"},
                                                           {message::kVerdictFileTooMany, L" %%1%%"},
                                                           {message::kApplyClash, L" %%1%% %%2%%"},
                                                           {message::kUndoClash, L" %%1%% %%2%%"},
                                                           {message::kBulkSummary, L" %%1%% %%2%%"},
                                                           {message::kMeasuring, L" %%1%% %%2%%"},
                                                           {message::kVersion, L" %%1%%.%%2%%.%%3%%"},
                                                           {message::kTagFailure, L" %%1%% %%2%%"},
                                                           {message::kFoldersNotRead, L" %%1%%"},
                                                           {message::kNoSuchFolder, L" %%1%%"},
                                                           {message::kUpToDate, L" %%1%% %%2%%.%%3%%.%%4%%"}};
  const auto found = placeholders.find(n);
  return L"<" + std::to_wstring(n) + L">" + (found == placeholders.end() ? L"" : found->second);
}

}  // namespace tagrix
