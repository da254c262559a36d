#include "tools/setup/setup_mod.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/failure_text.h"
#include "core/load_language.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/folder_chooser.h"
#include "forms/list_lookups.h"
#include "freedb/server_list.h"
#include "session/rename_pattern.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

// The rows of the server list; the text ends with a line end.
std::vector<std::wstring> ServerRows(bool withLabels) {
  std::vector<std::wstring> rows = Split(FreeDbServerList(withLabels), L"\r\n");
  rows.pop_back();
  return rows;
}

void LoadServers(SetupPage& page, Context& context) {
  const std::wstring stored = context.settings.Get(setting::kFreeDbServer);
  int chosen = -1;
  page.setup_freedb_cmb.Clear();
  for (const std::wstring& row : ServerRows(true)) {
    if (chosen < 0 && StartsWithIgnoringCase(row, stored)) chosen = page.setup_freedb_cmb.Count();
    page.setup_freedb_cmb.Add(row);
  }
  page.setup_freedb_cmb.Select(std::max(chosen, 0));
}

void LoadPattern(ComboBox& combo, const std::vector<std::wstring>& proposals, const std::wstring& stored) {
  combo.Clear();
  for (const std::wstring& proposal : proposals) combo.Add(proposal);
  if (!ListContains(combo, stored)) combo.Add(stored);
  combo.SetText(stored);
}

void LoadPatterns(SetupPage& page, Context& context) {
  using setting::kPattern, setting::kPlaylist;
  LoadPattern(page.setup_pat_cmb,
              {kPattern.standard, L"%3 - %6 - %2", L"%1 - %6 - %3 - %2", L"%6 - %2", L"[%6]%1 - %3 - %2"},
              context.settings.Get(kPattern));
  LoadPattern(page.setup_pls_cmb, {kPlaylist.standard, L"%1 - %3"}, context.settings.Get(kPlaylist));
  ShowSamples(page, context);
}

// The folder can be chosen only for playlists that go there.
void EnablePlaylistFolder(SetupPage& page) {
  const bool usable = page.setup_plsspec_opt.Checked();
  page.setup_plsfolder_txt.SetEnabled(usable);
  page.setup_plsbrowse_btn.SetEnabled(usable);
}

void LoadPlaylistMode(SetupPage& page, Context& context) {
  const PlaylistMode mode = ParsePlaylistMode(context.settings.Get(setting::kPlaylistMode));
  OptionButton& place = mode.place == 1   ? page.setup_plsparent_opt
                        : mode.place == 2 ? page.setup_plsspec_opt
                                          : page.setup_plsalb_opt;
  place.Choose();
  if (mode.folder.size() > 2 && FolderExists(context.files, mode.folder)) page.setup_plsfolder_txt.SetText(mode.folder);
  EnablePlaylistFolder(page);
}

std::optional<TagStyle> ChosenStyle(const SetupPage& page) {
  if (page.setup_tagsask_opt.Checked()) return std::nullopt;
  return page.setup_tagsstandard_opt.Checked() ? TagStyle::Standard : TagStyle::Classic;
}

void EnableProxy(SetupPage& page) {
  const bool used = page.setup_proxy_chk.Checked();
  page.setup_proxyname_txt.SetEnabled(used);
  page.setup_proxyport_txt.SetEnabled(used);
}

// The settings that are plain texts, in the order in which they are saved.
struct TextField {
  TextBox& box;
  const TextSetting& setting;
};
std::array<TextField, 3> SourceFields(SetupPage& page) {
  return {{{page.setup_site_txt, setting::kFreeDbSite},
           {page.setup_contact_txt, setting::kContact},
           {page.setup_musicbrainz_txt, setting::kMusicBrainzServer}}};
}

void LoadNetwork(SetupPage& page, Context& context) {
  Settings& settings = context.settings;
  for (const auto& [box, stored] : SourceFields(page)) box.SetText(settings.Get(stored));
  page.setup_proxy_chk.SetChecked(settings.Get(setting::kUseProxy));
  page.setup_proxyname_txt.SetText(settings.Get(setting::kProxyName));
  page.setup_proxyport_txt.SetText(settings.Typed(setting::kProxyPort));
  EnableProxy(page);
  page.setup_bypass_chk.SetChecked(settings.Get(setting::kBypass));
  page.setup_cgi_txt.SetText(settings.Get(setting::kCgiPath));
  page.setup_httpport_txt.SetText(settings.Typed(setting::kHttpPort));
  page.setup_autoupd_chk.SetChecked(settings.Get(setting::kAutoUpdate));
}

std::wstring ChosenMode(const SetupPage& page) {
  const wchar_t* place = page.setup_plsspec_opt.Checked() ? L"2" : page.setup_plsparent_opt.Checked() ? L"1" : L"0";
  return place + page.setup_plsfolder_txt.Text();
}

void PutSettings(SetupPage& page, Settings& settings) {
  settings.Put(setting::kPlaylistMode, ChosenMode(page));
  settings.Put(setting::kCgiPath, Trim(page.setup_cgi_txt.Text()));
  settings.Put(setting::kHttpPort, LeadingInteger(page.setup_httpport_txt.Text()));
  settings.Put(setting::kProxyPort, Trim(page.setup_proxyport_txt.Text()));
  settings.Put(setting::kProxyName, Trim(page.setup_proxyname_txt.Text()));
  settings.Put(setting::kUseProxy, page.setup_proxy_chk.Checked());
  settings.Put(setting::kBypass, page.setup_bypass_chk.Checked());
  settings.Put(setting::kAutoUpdate, page.setup_autoupd_chk.Checked());
  settings.Put(setting::kPattern, Trim(page.setup_pat_cmb.Text()));
  settings.Put(setting::kPlaylist, Trim(page.setup_pls_cmb.Text()));
  settings.Put(setting::kFreeDbServer,
               ServerRows(false).at(static_cast<std::size_t>(page.setup_freedb_cmb.SelectedIndex())));
  for (const auto& [box, stored] : SourceFields(page)) settings.Put(stored, Trim(box.Text()));
  settings.Put(setting::kTagStyle, TagStyleName(ChosenStyle(page)));
}

}  // namespace

void LoadTagStyle(SetupPage& page, Context& context) {
  const auto style = ParseTagStyle(context.settings.Get(setting::kTagStyle));
  OptionButton& chosen = !style                         ? page.setup_tagsask_opt
                         : *style == TagStyle::Standard ? page.setup_tagsstandard_opt
                                                        : page.setup_tagsclassic_opt;
  chosen.Choose();
}

void ShowSamples(SetupPage& page, Context& context) {
  const std::wstring year = std::to_wstring(context.clock.CurrentYear());
  page.setup_pattern_lbl.SetText(PatternSample(page.setup_pat_cmb.Text(), year));
  page.setup_testpls_lbl.SetText(PlaylistSample(page.setup_pls_cmb.Text(), year));
}

void LoadSettings(SetupPage& page, Context& context) {
  LoadServers(page, context);
  LoadPatterns(page, context);
  LoadPlaylistMode(page, context);
  LoadTagStyle(page, context);
  LoadNetwork(page, context);
}

void SaveSetup(SetupPage& page, Context& context, const std::function<void()>& retranslate) {
  if (page.setup_proxy_chk.Checked() && Trim(page.setup_proxyname_txt.Text()).empty()) {
    context.prompts.Message(context.Text(message::kProxyNameMissing));
    return;
  }
  PutSettings(page, context.settings);

  const std::wstring file = page.setup_lngcmb.Text() + L".lf";
  // One that has vanished leaves the texts in force, and so does one that can't be read, which is told.
  if (FileExists(context.files, context.programFolder + L"\\" + file)) {
    try {
      loadlangue(context, page.setup_lngcmb, file);
    } catch (const Failure& failure) {
      context.prompts.Message(FailureText(context.language, failure));
    }
  }
  retranslate();
  ShowSamples(page, context);
}

void InitSetupPage(SetupPage& page, Context& context, std::function<void()> retranslate) {
  for (ComboBox* combo : {&page.setup_pat_cmb, &page.setup_pls_cmb}) {
    combo->chosen = combo->edited = Notice(context, [&] { ShowSamples(page, context); });
  }
  for (OptionButton* place : page.playlistPlace) place->clicked = [&] { EnablePlaylistFolder(page); };
  page.setup_proxy_chk.clicked = [&] { EnableProxy(page); };
  page.setup_plsbrowse_btn.clicked = Command(context, [&] {
    if (const auto chosen = ChooseFolder(context, ChooserMode::SetupFolder)) {
      page.setup_plsfolder_txt.SetText(chosen->path);
    }
  });
  page.setup_ok_btn.clicked =
      Command(context, [&, change = std::move(retranslate)] { SaveSetup(page, context, change); });
  LoadSettings(page, context);
}

}  // namespace tagrix
