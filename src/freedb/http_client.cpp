#include "freedb/http_client.h"

#include <optional>
#include <utility>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/text.h"
#include "freedb/http_message.h"

namespace tagrix {
namespace {

constexpr int kLongestStep = 20;              // milliseconds between two looks at the socket
constexpr std::uint64_t kLineTimeout = 5000;  // milliseconds
constexpr std::string_view kLineEnd = "\r\n";

class BusyWhileAlive {
 public:
  explicit BusyWhileAlive(Context& context) : context_(context) { SetBusy(context_, true); }
  ~BusyWhileAlive() { SetBusy(context_, false); }
  BusyWhileAlive(const BusyWhileAlive&) = delete;
  BusyWhileAlive& operator=(const BusyWhileAlive&) = delete;

 private:
  Context& context_;
};

bool BeginsWithOneOf(std::string_view text, std::string_view prefixes) {
  for (size_t end = 0;; prefixes.remove_prefix(end + kLineEnd.size())) {
    end = prefixes.find(kLineEnd);
    if (text.starts_with(prefixes.substr(0, end))) return true;
    if (end == prefixes.npos) return false;
  }
}

int PortSetting(Settings& settings, const wchar_t* name) {
  constexpr int kDefault = 80, kGreatest = 32767;
  const std::wstring text = Trim(settings.Get(name));
  const int port = LeadingInteger(text);
  if (port > kGreatest) throw Failure(L"Connect", name, L"Port " + text + L" is above 32767.");
  return port > 0 ? port : kDefault;
}

}  // namespace

HttpClient::HttpClient(Context& context) : context_(context) {
  context_.socket.dataArrival = [this] { DataArrival(); };
  context_.socket.sendComplete = [this] { sendComplete_ = true; };
}

HttpClient::~HttpClient() {
  context_.socket.dataArrival = nullptr;
  context_.socket.sendComplete = nullptr;
}

std::string HttpClient::GetWebSite(std::wstring& url) {
  const BusyWhileAlive busy(context_);
  for (bool redirected = false; Fetch(url, redirected); redirected = true) {
    const HttpVerdict verdict = JudgeAnswer(received_);
    if (verdict == HttpVerdict::Page) return std::exchange(received_, {});
    if (verdict == HttpVerdict::Failed) break;
    const auto location = RedirectTarget(received_);
    if (!location) break;
    // Compared with the blank that usually precedes it, so that a server may redirect to the same address until the
    // user cancels.
    std::wstring target = context_.codePage.ToText(*location);
    if (target == url) break;
    url = std::move(target);
  }
  return {};
}

bool HttpClient::Fetch(std::wstring& url, bool redirected) {
  ErrorOccured();
  const auto host = PrepareUrl(url);
  if (!host) return false;
  received_.clear();
  Connect(*host);
  if (!Connected()) {
    context_.socket.Close();
    return false;
  }
  context_.socket.SendData(context_.codePage.ToBytes(HttpRequest(url, *host)));
  context_.events.DoEvents();
  // From a redirect on the flag stays: whoever cancels an endless chain between two requests means the chain.
  if (!redirected) context_.cancelled = false;
  RunUntil([this] { return !Connected() || context_.cancelled; });
  return !context_.cancelled;
}

void HttpClient::Connect(const std::wstring& host) {
  Settings& settings = context_.settings;
  if (Trim(settings.Get(L"UseProxy")) == L"1") {
    context_.socket.Connect(Trim(settings.Get(L"ProxyName")), PortSetting(settings, L"ProxyPort"));
  } else {
    context_.socket.Connect(host, PortSetting(settings, L"HTTPPort"));
  }
  context_.events.DoEvents();
  RunUntil([this] {
    const SocketState state = context_.socket.State();
    return state < SocketState::ConnectionPending || state > SocketState::Connecting;
  });
}

void HttpClient::ErrorOccured() {
  context_.socket.Close();
  while (context_.socket.State() != SocketState::Closed) context_.events.DoEvents();
}

bool HttpClient::WaitFor(std::string_view expected, std::string* reply) {
  const std::uint64_t start = context_.events.TickCount();
  bool found = false;
  while (!found && Connected() && !GaveUp(start)) {
    context_.events.DoEvents();
    found = received_.find(kLineEnd) != received_.npos && BeginsWithOneOf(received_, expected);
    if (!found) context_.events.Wait(kLongestStep);
  }
  if (reply != nullptr) *reply = received_;
  received_.clear();
  return found;
}

bool HttpClient::Send(std::string_view text) {
  if (!Connected()) return false;
  sendComplete_ = false;
  context_.socket.SendData(std::string(text).append(kLineEnd));
  const std::uint64_t start = context_.events.TickCount();
  RunUntil([&] { return sendComplete_ || GaveUp(start); });
  return sendComplete_;
}

void HttpClient::RunUntil(const std::function<bool()>& done) {
  while (!done()) {
    context_.events.Wait(kLongestStep);
    context_.events.DoEvents();
  }
}

bool HttpClient::GaveUp(std::uint64_t start) const {
  return context_.cancelled || context_.events.TickCount() - start >= kLineTimeout;
}

void HttpClient::DataArrival() {
  if (!Connected()) return;
  std::string data = context_.socket.GetData();
  receivedCount_ += static_cast<std::int64_t>(data.size());
  received_ += data;
  SetStatus(context_,
            L"Downloading : " +
                Decimals(static_cast<double>(receivedCount_) / 1024, 2, context_.codePage.DecimalSeparator()) + L" Kb");
}

}  // namespace tagrix
