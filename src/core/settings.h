// The settings: every name and default, and how they are read. Texts under one registry key, read when needed and never
// cached.
#ifndef TAGRIX_CORE_SETTINGS_H
#define TAGRIX_CORE_SETTINGS_H

#include <optional>
#include <string>

#include "base/publisher.h"
#include "platform/registry.h"

namespace tagrix {

// The settings key as it is written by the main window, the album and the setup page, and by the side pages. Registry
// keys ignore letter case: both are one key.
inline constexpr const wchar_t* kSettingsKey = L"Software\\Ostrel Corp.\\Tagrix";
inline constexpr const wchar_t* kPageSettingsKey = L"software\\Ostrel Corp.\\Tagrix";

struct TextSetting {
  const wchar_t* name;
  const wchar_t* standard = L"";  // stands for an empty text
  bool trimmed = false;           // blanks around the text don't count
  const wchar_t* key = kSettingsKey;
};

struct FlagSetting {
  const wchar_t* name;
  bool standard;  // on: unless it holds exactly "0"; off: unless it holds exactly "1"
};

// A TCP port; 80 unless it begins with a number above 0.
struct PortSetting {
  const wchar_t* name;
};

namespace setting {

inline constexpr TextSetting kLanguage{L"langue", L"", true};  // base name of the language file
inline constexpr FlagSetting kFullscreen{L"Fullscreen", false};

inline constexpr TextSetting kPattern{L"Pattern", L"%1 - %3 - %6 - %2"}, kPlaylist{L"Playlist", L"%3"};
inline constexpr TextSetting kPlaylistMode{L"PlaylistMode"};  // a digit, then a folder
inline constexpr TextSetting kTagStyle{L"TagStyle"};          // TagStyleName

inline constexpr TextSetting kFreeDbServer{L"FreeDBServer"};  // host
inline constexpr TextSetting kCgiPath{L"CGIPath", L"/~cddb/cddb.cgi", true};
inline constexpr TextSetting kFreeDbSite{L"FreeDBSite", publisher::kFreeDbWebSite, true};
inline constexpr TextSetting kSource{L"Source", L"MusicBrainz"};  // where albums are searched, by name
inline constexpr TextSetting kMusicBrainzServer{L"MusicBrainzServer", L"musicbrainz.org", true};
inline constexpr TextSetting kContact{L"Contact", L"", true};  // the user's address, for servers that want one
inline constexpr FlagSetting kUseProxy{L"UseProxy", false};
inline constexpr TextSetting kProxyName{L"ProxyName", L"", true};
inline constexpr PortSetting kProxyPort{L"ProxyPort"}, kHttpPort{L"HTTPPort"};

inline constexpr FlagSetting kBypass{L"Bypass", false};      // no test of the connection before an update check
inline constexpr FlagSetting kAutoUpdate{L"AutoUpd", true};  // look for an update at the start

inline constexpr FlagSetting kAskForBurner{L"AskCopyToDVD", true};  // ask at the start when it is not installed
inline constexpr TextSetting kWindow{L"Window"};  // width and height in units of 1/96 inch, "m" when maximised
inline constexpr TextSetting kPage{L"Page"};      // the page in view, from 0

inline constexpr TextSetting kLastDir{L"LastDir"}, kPageLastDir{L"LastDir", L"", true, kPageSettingsKey};
// Spelled as stored since ever.
inline constexpr TextSetting kListerPattern{L"LiserPattern", L"[%3] %1%2", false, kPageSettingsKey};

}  // namespace setting

class Settings {
 public:
  explicit Settings(Registry& registry) : registry_(registry) {}

  std::wstring Get(const TextSetting& setting);
  void Put(const TextSetting& setting, const std::wstring& text);

  bool Get(const FlagSetting& setting);
  void Put(const FlagSetting& setting, bool on);

  // Throws Failure when it is above 32767.
  int Get(const PortSetting& setting);
  // The port as it was typed; "80" unless it begins with a number above 0.
  std::wstring Typed(const PortSetting& setting);
  void Put(const PortSetting& setting, const std::wstring& text);
  void Put(const PortSetting& setting, int port);  // 80 unless it is above 0

  // Whether requests go through the proxy: here, other than on the setup page, blanks around the "1" don't count.
  bool ThroughProxy();

 private:
  std::wstring Stored(const wchar_t* name, const wchar_t* key = kSettingsKey) {
    return registry_.GetRegValue(Hive::CurrentUser, key, name);
  }
  void Store(const wchar_t* name, const std::wstring& text, const wchar_t* key = kSettingsKey) {
    registry_.SetRegValue(Hive::CurrentUser, key, name, text);
  }

  Registry& registry_;
};

// Where an album's playlist goes.
struct PlaylistMode {
  int place = 0;        // 1 the parent folder, 2 the folder named here; any other: the album's folder
  std::wstring folder;  // kept whatever the place
};
PlaylistMode ParsePlaylistMode(const std::wstring& text);

// How tags are written where the classic way would lose something. None: the user is asked.
enum class TagStyle { Standard, Classic };
const wchar_t* TagStyleName(std::optional<TagStyle> style);  // as it is stored; empty for none
std::optional<TagStyle> ParseTagStyle(const std::wstring& text);

}  // namespace tagrix

#endif
