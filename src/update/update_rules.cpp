#include "update/update_rules.h"

#include <algorithm>

#include "base/file_names.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"

namespace tagrix {
namespace {

// Blanks and tabs.
std::wstring_view Strip(std::wstring_view text) {
  constexpr std::wstring_view kBlanks = L" \t";
  const std::size_t start = text.find_first_not_of(kBlanks);
  return start == text.npos ? std::wstring_view() : text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

std::wstring_view Unquoted(std::wstring_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() && (value[0] == L'"' || value[0] == L'\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::wstring TwoDecimals(std::uint64_t bytes, std::uint64_t unit) {
  const std::uint64_t whole = bytes / unit;
  const std::uint64_t hundredths = bytes % unit * 100 / unit;
  return std::to_wstring(whole) + L"." + TwoDigits(static_cast<int>(hundredths));
}

}  // namespace

std::wstring ProfileValue(std::wstring_view text, std::wstring_view section, std::wstring_view key) {
  bool inside = false;
  for (const std::wstring& raw : TextLines(text)) {
    const std::wstring_view line = Strip(raw);
    if (line.starts_with(L'[')) {
      if (inside) break;
      inside = EqualIgnoringCase(Strip(line.substr(1, line.find(L']') - 1)), section);
      continue;
    }
    const std::size_t equals = line.find(L'=');
    if (!inside || line.starts_with(L';') || equals == line.npos) continue;
    if (EqualIgnoringCase(Strip(line.substr(0, equals)), key)) {
      return std::wstring(Unquoted(Strip(line.substr(equals + 1))));
    }
  }
  return {};
}

bool IsBareFileName(std::wstring_view name) {
  const bool control = std::any_of(name.begin(), name.end(), [](wchar_t c) { return c < L' '; });
  return !name.empty() && !control && CleanFileName(name) == name && name.find(L"..") == name.npos &&
         !name.ends_with(L'.') && !name.ends_with(L' ') && !IsDeviceName(name);
}

std::wstring DisplaySize(std::uint64_t bytes) {
  constexpr std::uint64_t kKb = 1024, kMb = kKb * 1024, kGb = kMb * 1024;
  if (bytes < kKb) return std::to_wstring(bytes) + L" bytes";
  if (bytes < kMb) return TwoDecimals(bytes, kKb) + L" Kb";
  if (bytes < kGb) return TwoDecimals(bytes, kMb) + L" Mb";
  return TwoDecimals(bytes, kGb) + L" Gb";
}

int DownloadPercent(std::uint64_t done, std::uint64_t total) {
  if (total == 0) return 0;
  return static_cast<int>(static_cast<double>(std::min(done, total)) * 100 / static_cast<double>(total));
}

std::wstring DownloadProgress(std::uint64_t done, std::uint64_t total) {
  if (total == 0) return DisplaySize(done);
  return DisplaySize(done) + L" of " + DisplaySize(total) + L" [" + std::to_wstring(DownloadPercent(done, total)) +
         L"%]";
}

}  // namespace tagrix
