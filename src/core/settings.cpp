#include "core/settings.h"

#include "base/failure.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr int kStandardPort = 80, kGreatestPort = 32767;

}  // namespace

std::wstring Settings::Get(const TextSetting& setting) {
  std::wstring text = Stored(setting.name, setting.key);
  if (setting.trimmed) text = Trim(text);
  return text.empty() ? setting.standard : text;
}

void Settings::Put(const TextSetting& setting, const std::wstring& text) { Store(setting.name, text, setting.key); }

bool Settings::Get(const FlagSetting& setting) {
  return setting.standard ? Stored(setting.name) != L"0" : Stored(setting.name) == L"1";
}

void Settings::Put(const FlagSetting& setting, bool on) { Store(setting.name, on ? L"1" : L"0"); }

int Settings::Get(const PortSetting& setting) {
  const std::wstring text = Trim(Stored(setting.name));
  const int port = LeadingInteger(text);
  if (port > kGreatestPort) throw Failure(Action::Connect, text, Cause::PortTooHigh);
  return port > 0 ? port : kStandardPort;
}

std::wstring Settings::Typed(const PortSetting& setting) {
  const std::wstring text = Trim(Stored(setting.name));
  return LeadingInteger(text) > 0 ? text : std::to_wstring(kStandardPort);
}

void Settings::Put(const PortSetting& setting, const std::wstring& text) { Store(setting.name, text); }

void Settings::Put(const PortSetting& setting, int port) {
  Put(setting, std::to_wstring(port > 0 ? port : kStandardPort));
}

bool Settings::ThroughProxy() { return Trim(Stored(setting::kUseProxy.name)) == L"1"; }

PlaylistMode ParsePlaylistMode(const std::wstring& text) {
  if (text.empty()) return {};
  return {LeadingInteger(text.substr(0, 1)), text.substr(1)};
}

const wchar_t* TagStyleName(std::optional<TagStyle> style) {
  if (!style) return L"";
  return *style == TagStyle::Standard ? L"standard" : L"classic";
}

std::optional<TagStyle> ParseTagStyle(const std::wstring& text) {
  for (const TagStyle style : {TagStyle::Standard, TagStyle::Classic}) {
    if (text == TagStyleName(style)) return style;
  }
  return std::nullopt;
}

}  // namespace tagrix
