#include "fakes/fakes.h"

#include <set>

#include "core/messages.h"

namespace tagrix {

std::string FakeCodePage::ToBytes(std::wstring_view text) {
  std::string bytes;
  for (const wchar_t c : text) bytes += c < 256 ? static_cast<char>(c) : '?';
  return bytes;
}

std::wstring FakeCodePage::ToText(std::string_view bytes) {
  std::wstring text;
  for (const char c : bytes) text += static_cast<unsigned char>(c);
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
  open = &dialog;
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
  constexpr int kMore = 200;
  for (int n = 0; n < message::kCount; ++n) context.language.lng_lst.push_back(TestText(n));
  for (int n = 0; n < kMore; ++n) context.language.more.push_back(TestText(message::kFirstMore + n));
}

std::wstring TestText(int n) {
  using namespace message;
  // The texts with one placeholder, and those with two.
  static const std::set<int> one = {kContactingSource, kNotSecure,          kNotReached,         kNoDiscAnswer,
                                    kReadOnly,         kNewVersion,         kDownloadComplete,   kInstallerNotStarted,
                                    kAuthors,          kVerdictFileMissing, kVerdictFileTooMany, kFoldersNotRead,
                                    kNoSuchFolder,     kOverwritesEnd,      kPlaylistWritten,    kPlaylistExists,
                                    kOverwritePlaylist},
                             two = {kRefused,   kApplyClash, kUndoClash,  kBulkSummary,
                                    kMeasuring, kTagFailure, kFilesListed};
  const int count = one.contains(n)        ? 1
                    : two.contains(n)      ? 2
                    : n == kVersion        ? 3
                    : n == kUpToDate       ? 4
                    : n == kAppliedFigures ? 5
                                           : 0;
  std::wstring text = L"<" + std::to_wstring(n) + (n == kRenameFailed ? L"> %%FIC%%" : L">");
  for (int i = 1; i <= count; ++i) text += L" %%" + std::to_wstring(i) + L"%%";
  return text;
}

std::string LanguageFile(int lines, const std::string& word) {
  std::string text;
  for (int n = 0; n < lines; ++n) text += "000" + word + std::to_string(n) + "\r\n";
  return text;
}

}  // namespace tagrix
