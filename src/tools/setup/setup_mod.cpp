#include "tools/setup/setup_mod.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/rename_pattern.h"
#include "core/text.h"
#include "dialogs/folder_chooser.h"
#include "freedb/server_list.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kDefaultPort = L"80";
constexpr const wchar_t* kDefaultCgiPath = L"/~cddb/cddb.cgi";

// The rows of the server list; the text ends with a line end.
std::vector<std::wstring> ServerRows(bool withLabels) {
  std::vector<std::wstring> rows = Split(FreeDbServerList(withLabels), L"\r\n");
  rows.pop_back();
  return rows;
}

void LoadServers(SetupPage& page, Context& context) {
  const std::wstring stored = context.settings.Get(L"FreeDBServer");
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
  if (stored.empty()) {
    combo.Select(0);
  } else {
    if (!ListContains(combo, stored)) combo.Add(stored);
    combo.SetText(stored);
  }
}

void LoadPatterns(SetupPage& page, Context& context) {
  LoadPattern(page.setup_pat_cmb,
              {std::wstring(kDefaultPattern), L"%3 - %6 - %2", L"%1 - %6 - %3 - %2", L"%6 - %2", L"[%6]%1 - %3 - %2"},
              context.settings.Get(L"Pattern"));
  LoadPattern(page.setup_pls_cmb, {std::wstring(kDefaultPlaylistPattern), L"%1 - %3"},
              context.settings.Get(L"Playlist"));
  ShowSamples(page, context);
}

// The folder can be chosen only for playlists that go there.
void EnablePlaylistFolder(SetupPage& page) {
  const bool usable = page.setup_plsspec_opt.Checked();
  page.setup_plsfolder_txt.SetEnabled(usable);
  page.setup_plsbrowse_btn.SetEnabled(usable);
}

void LoadPlaylistMode(SetupPage& page, Context& context) {
  const std::wstring mode = context.settings.Get(L"PlaylistMode");
  OptionButton& place = mode.starts_with(L'1')   ? page.setup_plsparent_opt
                        : mode.starts_with(L'2') ? page.setup_plsspec_opt
                                                 : page.setup_plsalb_opt;
  place.Choose();
  if (mode.size() > 3) {
    std::wstring folder = mode.substr(1);
    if (FolderExists(context, folder)) page.setup_plsfolder_txt.SetText(std::move(folder));
  }
  EnablePlaylistFolder(page);
}

void EnableProxy(SetupPage& page) {
  const bool used = page.setup_proxy_chk.Checked();
  page.setup_proxyname_txt.SetEnabled(used);
  page.setup_proxyport_txt.SetEnabled(used);
}

std::wstring TrimmedSetting(Context& context, const wchar_t* name) { return Trim(context.settings.Get(name)); }

std::wstring PortSetting(Context& context, const wchar_t* name) {
  std::wstring port = TrimmedSetting(context, name);
  return LeadingInteger(port) > 0 ? port : kDefaultPort;
}

void LoadNetwork(SetupPage& page, Context& context) {
  page.setup_proxy_chk.SetChecked(context.settings.Get(L"UseProxy") == L"1");
  page.setup_proxyname_txt.SetText(TrimmedSetting(context, L"ProxyName"));
  page.setup_proxyport_txt.SetText(PortSetting(context, L"ProxyPort"));
  EnableProxy(page);
  page.setup_bypass_chk.SetChecked(context.settings.Get(L"Bypass") == L"1");
  const std::wstring path = TrimmedSetting(context, L"CGIPath");
  page.setup_cgi_txt.SetText(path.empty() ? kDefaultCgiPath : path);
  page.setup_httpport_txt.SetText(PortSetting(context, L"HTTPPort"));
  // On unless it is switched off, while the other two are off unless they are switched on.
  page.setup_autoupd_chk.SetChecked(context.settings.Get(L"AutoUpd") != L"0");
}

std::wstring PlaylistMode(const SetupPage& page) {
  const wchar_t* place = page.setup_plsspec_opt.Checked() ? L"2" : page.setup_plsparent_opt.Checked() ? L"1" : L"0";
  return place + page.setup_plsfolder_txt.Text();
}

const wchar_t* Flag(const CheckBox& box) { return box.Checked() ? L"1" : L"0"; }

void PutSettings(const SetupPage& page, Settings& settings) {
  settings.Put(L"PlaylistMode", PlaylistMode(page));
  settings.Put(L"CGIPath", Trim(page.setup_cgi_txt.Text()));
  const int port = LeadingInteger(page.setup_httpport_txt.Text());
  settings.Put(L"HTTPPort", port > 0 ? std::to_wstring(port) : kDefaultPort);
  settings.Put(L"ProxyPort", Trim(page.setup_proxyport_txt.Text()));
  settings.Put(L"ProxyName", Trim(page.setup_proxyname_txt.Text()));
  settings.Put(L"UseProxy", Flag(page.setup_proxy_chk));
  settings.Put(L"Bypass", Flag(page.setup_bypass_chk));
  settings.Put(L"AutoUpd", Flag(page.setup_autoupd_chk));
  settings.Put(L"Pattern", Trim(page.setup_pat_cmb.Text()));
  settings.Put(L"Playlist", Trim(page.setup_pls_cmb.Text()));
  settings.Put(L"FreeDBServer", ServerRows(false).at(static_cast<std::size_t>(page.setup_freedb_cmb.SelectedIndex())));
}

}  // namespace

void ShowSamples(SetupPage& page, Context& context) {
  const std::wstring year = CurrentYear(context);
  page.setup_pattern_lbl.SetText(PatternSample(page.setup_pat_cmb.Text(), year));
  page.setup_testpls_lbl.SetText(PlaylistSample(page.setup_pls_cmb.Text(), year));
}

void LoadSettings(SetupPage& page, Context& context) {
  LoadServers(page, context);
  LoadPatterns(page, context);
  LoadPlaylistMode(page, context);
  LoadNetwork(page, context);
}

void SaveSetup(SetupPage& page, Context& context, const std::function<void()>& retranslate) {
  if (page.setup_proxy_chk.Checked() && Trim(page.setup_proxyname_txt.Text()).empty()) {
    context.prompts.Message(context.Text(message::kProxyNameMissing));
    return;
  }
  PutSettings(page, context.settings);

  const std::wstring file = page.setup_lngcmb.Text() + L".lf";
  if (!FileExists(context, context.programFolder + L"\\" + file)) return;  // it has vanished: the texts stay
  loadlangue(context, page.setup_lngcmb, file);
  retranslate();
}

void InitSetupPage(SetupPage& page, Context& context, std::function<void()> retranslate) {
  for (ComboBox* combo : {&page.setup_pat_cmb, &page.setup_pls_cmb}) {
    combo->chosen = combo->edited = Notice(context, [&] { ShowSamples(page, context); });
  }
  for (OptionButton* place : page.playlistPlace) place->clicked = [&] { EnablePlaylistFolder(page); };
  page.setup_proxy_chk.clicked = [&] { EnableProxy(page); };
  page.setup_plsbrowse_btn.clicked =
      Command(context, [&] { ChooseFolder(context, ChooserMode::SetupFolder, {.folder = &page.setup_plsfolder_txt}); });
  page.setup_ok_btn.clicked =
      Command(context, [&, change = std::move(retranslate)] { SaveSetup(page, context, change); });
  LoadSettings(page, context);
}

}  // namespace tagrix
