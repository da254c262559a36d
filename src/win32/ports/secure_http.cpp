#include "win32/ports/secure_http.h"

// Needs windows.h before it.
#include <winhttp.h>

#include <algorithm>
#include <cwchar>
#include <memory>
#include <utility>

namespace tagrix {

// Where the library puts what it reads and to whom it reports, until it has closed the request.
struct WinHttpsClient::Desk {
  HWND window;
  UINT message;
  char piece[32 * 1024];

  static void CALLBACK Report(HINTERNET, DWORD_PTR context, DWORD status, void* information, DWORD size) {
    const auto desk = reinterpret_cast<Desk*>(context);
    if (desk == nullptr) return;
    if (status == WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING) {
      delete desk;
      return;
    }
    const bool failed = status == WINHTTP_CALLBACK_STATUS_REQUEST_ERROR;
    const DWORD value = failed ? static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError : size;
    PostMessageW(desk->window, desk->message, status, static_cast<LPARAM>(value));
  }
};

namespace {

void SetOption(HINTERNET handle, DWORD option, DWORD value) { WinHttpSetOption(handle, option, &value, sizeof value); }

// A system that doesn't know TLS 1.3 refuses both.
bool DemandTls12(HINTERNET session) {
  constexpr DWORD kTls12 = WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2, kTls13 = WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_3;
  for (DWORD protocols : {kTls12 | kTls13, kTls12}) {
    if (WinHttpSetOption(session, WINHTTP_OPTION_SECURE_PROTOCOLS, &protocols, sizeof protocols)) return true;
  }
  return false;
}

HttpsAnswer::End EndOf(DWORD error) {
  switch (error) {
    case ERROR_WINHTTP_SECURE_FAILURE:
    case ERROR_WINHTTP_SECURE_CHANNEL_ERROR:
    case ERROR_WINHTTP_SECURE_CERT_DATE_INVALID:
    case ERROR_WINHTTP_SECURE_CERT_CN_INVALID:
    case ERROR_WINHTTP_SECURE_INVALID_CA:
    case ERROR_WINHTTP_SECURE_INVALID_CERT:
    case ERROR_WINHTTP_SECURE_CERT_WRONG_USAGE:
    case ERROR_WINHTTP_SECURE_CERT_REVOKED:
      return HttpsAnswer::End::NotSecure;
    default:
      return HttpsAnswer::End::NotReached;
  }
}

}  // namespace

void WinHttpsClient::HandleTraits::Close(void* handle) { WinHttpCloseHandle(handle); }

WinHttpsClient::WinHttpsClient(int patienceSeconds)
    : patience_(static_cast<ULONGLONG>(patienceSeconds) * 1000),
      window_([this](UINT message, WPARAM w, LPARAM l) { Handle(message, w, l); }) {}

WinHttpsClient::~WinHttpsClient() { WinHttpsClient::Close(); }

void WinHttpsClient::Get(const HttpsRequest& request) {
  Close();
  running_ = true;
  answer_ = {};
  limit_ = request.limit;
  lastSign_ = GetTickCount64();
  SetTimer(window_.Handle(), 1, 500, nullptr);
  if (!Send(request)) PostMessageW(window_.Handle(), Message(), WINHTTP_CALLBACK_STATUS_REQUEST_ERROR, 0);
}

void WinHttpsClient::Close() {
  if (!running_) return;
  running_ = false;
  ++number_;
  KillTimer(window_.Handle(), 1);
  request_.Reset();
  connection_.Reset();
  session_.Reset();
}

bool WinHttpsClient::Send(const HttpsRequest& request) {
  URL_COMPONENTSW parts{};
  parts.dwStructSize = sizeof parts;
  parts.dwHostNameLength = parts.dwUrlPathLength = static_cast<DWORD>(-1);
  if (!WinHttpCrackUrl(request.url.c_str(), 0, 0, &parts)) return false;
  const std::wstring host(parts.lpszHostName, parts.dwHostNameLength);
  const bool secure = parts.nScheme == INTERNET_SCHEME_HTTPS;

  const std::wstring proxy = request.proxy + L":" + std::to_wstring(request.proxyPort);
  const bool named = !request.proxy.empty();
  session_.Reset(WinHttpOpen(
      request.userAgent.c_str(), named ? WINHTTP_ACCESS_TYPE_NAMED_PROXY : WINHTTP_ACCESS_TYPE_AUTOMATIC_PROXY,
      named ? proxy.c_str() : WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC));
  if (!session_ || !DemandTls12(session_.Get())) return false;
  connection_.Reset(WinHttpConnect(session_.Get(), host.c_str(), parts.nPort, 0));
  if (!connection_) return false;
  request_.Reset(WinHttpOpenRequest(connection_.Get(), L"GET", parts.lpszUrlPath, nullptr, WINHTTP_NO_REFERER,
                                    WINHTTP_DEFAULT_ACCEPT_TYPES, secure ? WINHTTP_FLAG_SECURE : 0));
  if (!request_) return false;
  SetOption(request_.Get(), WINHTTP_OPTION_REDIRECT_POLICY, WINHTTP_OPTION_REDIRECT_POLICY_DISALLOW_HTTPS_TO_HTTP);
  // Nobody's name and password leave the machine unasked.
  SetOption(request_.Get(), WINHTTP_OPTION_AUTOLOGON_POLICY, WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH);

  auto desk = std::make_unique<Desk>();
  desk->window = window_.Handle();
  desk->message = Message();
  auto context = reinterpret_cast<DWORD_PTR>(desk.get());
  if (WinHttpSetStatusCallback(request_.Get(), Desk::Report,
                               WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES,
                               0) == WINHTTP_INVALID_STATUS_CALLBACK ||
      !WinHttpSetOption(request_.Get(), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context)) {
    return false;
  }
  desk_ = desk.release();
  return WinHttpSendRequest(request_.Get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0, 0, context);
}

void WinHttpsClient::Handle(UINT message, WPARAM status, LPARAM value) {
  if (!running_) return;
  if (message == WM_TIMER) {
    if (GetTickCount64() - lastSign_ > patience_) End(HttpsAnswer::End::NotReached);
    return;
  }
  if (message != Message()) return;
  lastSign_ = GetTickCount64();
  switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
      if (!WinHttpReceiveResponse(request_.Get(), nullptr)) End(HttpsAnswer::End::NotReached);
      break;
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
      TakeHeaders();
      break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
      TakePiece(static_cast<std::size_t>(value));
      break;
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
      End(EndOf(static_cast<DWORD>(value)));
      break;
  }
}

void WinHttpsClient::TakeHeaders() {
  answer_.status = static_cast<int>(Number(WINHTTP_QUERY_STATUS_CODE));
  constexpr std::uint64_t kDay = 86'400;  // seconds
  answer_.retryAfter = static_cast<int>(std::min(Number(WINHTTP_QUERY_RETRY_AFTER), kDay));
  announced_ = Number(WINHTTP_QUERY_CONTENT_LENGTH);
  ReadOn();
}

void WinHttpsClient::TakePiece(std::size_t size) {
  if (size == 0) {
    const bool cut = answer_.body.size() < announced_;
    return End(cut ? HttpsAnswer::End::NotReached : HttpsAnswer::End::Complete);
  }
  answer_.body.append(desk_->piece, size);
  ReadOn();
}

void WinHttpsClient::ReadOn() {
  if (std::max<std::uint64_t>(answer_.body.size(), announced_) > limit_) return End(HttpsAnswer::End::TooLong);
  if (!WinHttpReadData(request_.Get(), desk_->piece, sizeof desk_->piece, nullptr)) End(HttpsAnswer::End::NotReached);
}

void WinHttpsClient::End(HttpsAnswer::End end) {
  Close();
  HttpsAnswer answer;
  if (end == HttpsAnswer::End::Complete) answer = std::move(answer_);
  answer.end = end;
  answer_ = {};
  if (ended) ended(std::move(answer));
}

std::uint64_t WinHttpsClient::Number(DWORD header) const {
  wchar_t text[32] = L"";
  DWORD size = sizeof text;
  if (!WinHttpQueryHeaders(request_.Get(), header, WINHTTP_HEADER_NAME_BY_INDEX, text, &size,
                           WINHTTP_NO_HEADER_INDEX)) {
    return 0;
  }
  return std::wcstoull(text, nullptr, 10);
}

}  // namespace tagrix
