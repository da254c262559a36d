// HTTP as far as a plain GET needs it: the address, the request, and what an answer's status line says.
// Source: RFC 1945 (HTTP/1.0).
#ifndef TAGRIX_FREEDB_HTTP_MESSAGE_H
#define TAGRIX_FREEDB_HTTP_MESSAGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tagrix {

// Trims the address, appends "/" when it ends with its host, and returns the host; nothing when the address doesn't
// begin with "http://" or "https://" or couldn't stand in a request line.
std::optional<std::wstring> PrepareUrl(std::wstring& url);

// The port that a host is followed by ("localhost:8080"); nothing when there is none from 1 to 65535.
std::optional<int> PortOf(std::wstring_view host);

// The whole request; its first line carries the absolute address, with or without a proxy.
std::wstring HttpRequest(const std::wstring& url, const std::wstring& host);

enum class HttpVerdict { Page, Redirect, Failed };

// Judges an answer (status line, headers, body) by its status. One whose status line can't be told, because it is too
// short or its lines don't end in CR LF, passes for a page.
HttpVerdict JudgeAnswer(std::string_view answer);

// What follows "Location:" on its line, the usual blank included; nothing when there is no such line.
std::optional<std::string_view> RedirectTarget(std::string_view answer);

// How many bytes the whole answer is said to have; nothing before its headers have come, and when they don't say.
std::optional<std::uint64_t> AnnouncedSize(std::string_view answer);

}  // namespace tagrix

#endif
