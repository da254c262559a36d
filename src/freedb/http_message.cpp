#include "freedb/http_message.h"

#include <algorithm>
#include <charconv>

#include "base/publisher.h"
#include "base/text.h"

namespace tagrix {
namespace {

// The end of the line that `start` is on: the first CR or LF; npos unless the rest holds both.
size_t LineEnd(std::string_view text, size_t start) {
  const size_t cr = text.find('\r', start);
  const size_t lf = text.find('\n', start);
  return cr == text.npos || lf == text.npos ? text.npos : std::min(cr, lf);
}

}  // namespace

std::optional<std::wstring> PrepareUrl(std::wstring& url) {
  constexpr std::wstring_view kPlain = L"http://", kSecure = L"https://", kMark = L"://";
  url = Trim(url);
  const bool secure = url.starts_with(kSecure) && url.size() > kSecure.size();
  if (!url.starts_with(kPlain) && !secure) return std::nullopt;
  if (url.find_first_of(L"\r\n") != url.npos) return std::nullopt;
  const size_t start = url.find(kMark) + kMark.size();
  const size_t slash = url.find(L'/', start + 1);
  std::wstring host = Trim(std::wstring_view(url).substr(start, slash == url.npos ? slash : slash - start));
  if (url.ends_with(host)) url += L'/';
  return host;
}

std::optional<int> PortOf(std::wstring_view host) {
  const size_t colon = host.find(L':');
  if (colon == host.npos) return std::nullopt;
  const std::wstring_view digits = host.substr(colon + 1);
  if (digits.empty() || digits.size() > 5 || digits.find_first_not_of(L"0123456789") != digits.npos) {
    return std::nullopt;
  }
  const int port = LeadingInteger(digits);
  return port > 0 && port <= 65535 ? std::optional(port) : std::nullopt;
}

std::wstring HttpRequest(const std::wstring& url, const std::wstring& host) {
  std::wstring request = L"GET " + url + L" HTTP/1.0\r\n";
  request += L"Accept: */*\r\n";
  request.append(L"User-Agent: ").append(publisher::kProduct).append(L"\r\n");
  request += L"Host: " + host + L"\r\n";
  request.append(L"Referer: ").append(publisher::kWebSite).append(L"\r\n");
  return request + L"\r\n";
}

HttpVerdict JudgeAnswer(std::string_view answer) {
  constexpr size_t kVersion = 8;  // "HTTP/1.0"
  const size_t end = LineEnd(answer, 0);
  if (end == answer.npos) return HttpVerdict::Page;
  std::string_view status = answer.substr(0, end + 1);
  status.remove_prefix(std::min(kVersion, status.size()));
  status.remove_prefix(std::min(status.find_first_not_of(' '), status.size()));
  if (status.size() <= 3 || status.starts_with("200")) return HttpVerdict::Page;
  return status.starts_with("302") ? HttpVerdict::Redirect : HttpVerdict::Failed;
}

std::optional<std::string_view> RedirectTarget(std::string_view answer) {
  constexpr std::string_view kLocation = "Location:";
  const size_t at = answer.find(kLocation);
  if (at == answer.npos) return std::nullopt;
  const size_t start = at + kLocation.size();
  const size_t end = LineEnd(answer, start);
  if (end == answer.npos) return std::nullopt;
  return answer.substr(start, end - start);
}

std::optional<std::uint64_t> AnnouncedSize(std::string_view answer) {
  constexpr std::string_view kLength = "\r\ncontent-length:", kEnd = "\r\n\r\n";
  constexpr size_t kMostHeaders = 1 << 14;  // an answer without any may be long
  const size_t end = answer.substr(0, kMostHeaders).find(kEnd);
  if (end == answer.npos) return std::nullopt;
  const std::string_view headers = answer.substr(0, end);
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  const auto name = std::search(headers.begin(), headers.end(), kLength.begin(), kLength.end(),
                                [&](char a, char b) { return small(a) == b; });
  if (name == headers.end()) return std::nullopt;
  std::string_view digits = headers.substr(static_cast<size_t>(name - headers.begin()) + kLength.size());
  digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
  std::uint64_t body = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), body);
  return read.ec == std::errc() ? std::optional(end + kEnd.size() + body) : std::nullopt;
}

}  // namespace tagrix
