#include "freedb/http_client.h"

#include <optional>
#include <utility>

#include "base/text.h"
#include "freedb/http_message.h"

namespace tagrix {
namespace {

constexpr int kLongestStep = 20;              // milliseconds between two looks at the socket
constexpr std::uint64_t kLineTimeout = 5000;  // milliseconds
constexpr std::size_t kLongestAnswer = 256 << 20;
constexpr std::string_view kCrLf = "\r\n";

bool BeginsWithOneOf(std::string_view text, std::string_view prefixes) {
  for (size_t end = 0;; prefixes.remove_prefix(end + kCrLf.size())) {
    end = prefixes.find(kCrLf);
    if (text.starts_with(prefixes.substr(0, end))) return true;
    if (end == prefixes.npos) return false;
  }
}

// Tells a page's progress for as long as this lives.
class Listening {
 public:
  Listening(Progress*& place, Progress& progress) : place_(place) { place = &progress; }
  ~Listening() { place_ = nullptr; }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

 private:
  Progress*& place_;
};

}  // namespace

HttpClient::HttpClient(const Ports& ports) : ports_(ports) {
  ports_.socket.dataArrival = [this] { DataArrival(); };
  ports_.socket.sendComplete = [this] { sendComplete_ = true; };
}

HttpClient::~HttpClient() {
  ports_.socket.dataArrival = nullptr;
  ports_.socket.sendComplete = nullptr;
}

std::string HttpClient::GetWebSite(std::wstring& url, Progress& progress, std::string* refusal) {
  const Listening listening(progress_, progress);
  while (Fetch(url, progress)) {
    const HttpVerdict verdict = JudgeAnswer(received_);
    if (verdict == HttpVerdict::Page) return std::exchange(received_, {});
    const auto location = verdict == HttpVerdict::Redirect ? RedirectTarget(received_) : std::nullopt;
    // Compared with the blank that usually precedes it, so that a server may redirect to the same address until the
    // user cancels.
    std::wstring target = location ? ports_.codePage.ToText(*location) : url;
    if (target == url) {
      if (refusal != nullptr) *refusal = received_;
      break;
    }
    url = std::move(target);
  }
  return {};
}

bool HttpClient::Fetch(std::wstring& url, Progress& progress) {
  ErrorOccured();
  const auto host = PrepareUrl(url);
  if (!host) return false;
  received_.clear();
  Connect(*host, progress);
  if (!Connected()) {
    ports_.socket.Close();
    return false;
  }
  ports_.socket.SendData(ports_.codePage.ToBytes(HttpRequest(url, *host)));
  ports_.events.RunUntil([&] { return !Connected() || progress.Cancelled(); });
  return !progress.Cancelled() && received_.size() <= kLongestAnswer;
}

void HttpClient::Connect(const std::wstring& host, const Progress& progress) {
  Settings& settings = ports_.settings;
  if (settings.ThroughProxy()) {
    ports_.socket.Connect(settings.Get(setting::kProxyName), settings.Get(setting::kProxyPort));
  } else if (const auto port = PortOf(host)) {
    ports_.socket.Connect(host.substr(0, host.find(L':')), *port);
  } else {
    ports_.socket.Connect(host, settings.Get(setting::kHttpPort));
  }
  ports_.events.RunUntil([&] {
    const SocketState state = ports_.socket.State();
    return state < SocketState::ConnectionPending || state > SocketState::Connecting || progress.Cancelled();
  });
}

void HttpClient::ErrorOccured() {
  ports_.socket.Close();
  while (ports_.socket.State() != SocketState::Closed) ports_.events.DoEvents();
}

bool HttpClient::WaitFor(std::string_view expected, Progress& progress, std::string* reply) {
  const std::uint64_t start = ports_.events.TickCount();
  bool found = false;
  while (!found && Connected() && !GaveUp(start, progress)) {
    ports_.events.DoEvents();
    found = received_.find(kCrLf) != received_.npos && BeginsWithOneOf(received_, expected);
    if (!found) ports_.events.Wait(kLongestStep);
  }
  if (reply != nullptr) *reply = received_;
  received_.clear();
  return found;
}

bool HttpClient::Send(std::string_view text, Progress& progress) {
  if (!Connected()) return false;
  sendComplete_ = false;
  ports_.socket.SendData(std::string(text).append(kCrLf));
  const std::uint64_t start = ports_.events.TickCount();
  ports_.events.RunUntil([&] { return sendComplete_ || GaveUp(start, progress); });
  return sendComplete_;
}

bool HttpClient::GaveUp(std::uint64_t start, const Progress& progress) const {
  return progress.Cancelled() || ports_.events.TickCount() - start >= kLineTimeout;
}

void HttpClient::DataArrival() {
  if (!Connected()) return;
  std::string data = ports_.socket.GetData();
  receivedCount_ += static_cast<std::int64_t>(data.size());
  received_ += data;
  if (received_.size() > kLongestAnswer) ports_.socket.Close();
  if (progress_ == nullptr) return;
  progress_->Status(L"Downloading : " +
                    Decimals(static_cast<double>(receivedCount_) / 1024, 2, ports_.codePage.DecimalSeparator()) +
                    L" Kb");
  if (const auto announced = AnnouncedSize(received_); announced && received_.size() <= *announced) {
    progress_->Percent(Percentage(static_cast<long long>(received_.size()), static_cast<long long>(*announced)));
  }
}

}  // namespace tagrix
