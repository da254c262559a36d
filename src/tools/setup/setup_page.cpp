#include "tools/setup/setup_page.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "core/messages.h"
#include "core/notices.h"
#include "forms/captions.h"

namespace tagrix {
namespace {

constexpr int kShortCaptions = 60, kLongCaptions = 140;

// A caption with its field, the fields of a frame standing below each other.
Node Field(int captionWidth, Label& caption, Control& field) {
  return Row({MinSize(captionWidth, 0, caption), Stretch(1, field)});
}

std::wstring TokenLines(Context& context, int firstToken, std::initializer_list<int> messages) {
  std::wstring lines;
  for (const int message : messages) {
    if (!lines.empty()) lines += L"\r\n";
    lines += L"%" + std::to_wstring(firstToken++) + L" : " + WithoutAccessKeys(context.Text(message));
  }
  return lines;
}

}  // namespace

Node SetupLayout(SetupPage& page) {
  const auto indent = [](Node node) { return Row({MinSize(14, 0, Row({})), Stretch(1, std::move(node))}); };
  const Node names = Column({
      Framed(page.setup_lngfrm, Field(0, page.setup_currentlng_lbl, page.setup_lngcmb)),
      Framed(page.setup_renamer_frm, Column({Field(kShortCaptions, page.setup_choosepattern_lbl, page.setup_pat_cmb),
                                             indent(page.setup_pattern_lbl)})),
      Framed(page.setup_tags_frm,
             Column({page.setup_tagsask_opt, page.setup_tagsstandard_opt, page.setup_tagsclassic_opt})),
      Framed(page.setup_playlist_frm,
             Column({Field(kShortCaptions, page.setup_plspat_lbl, page.setup_pls_cmb), indent(page.setup_testpls_lbl),
                     page.setup_plsalb_opt, page.setup_plsparent_opt, page.setup_plsspec_opt,
                     indent(Row({Stretch(1, page.setup_plsfolder_txt), page.setup_plsbrowse_btn}))})),
      Framed(page.setup_help_frm,
             Row({Stretch(1, page.setup_patterndef_lbl[0]), Stretch(1, page.setup_patterndef_lbl[1])})),
      Spacer(),
  });
  const Node network = Column({
      Framed(page.setup_internet_frm, Column({page.setup_autoupd_chk, page.setup_bypass_chk})),
      Framed(page.setup_freedb_frm, Column({page.setup_choosefreedb_lbl, page.setup_freedb_cmb,
                                            Field(kLongCaptions, page.setup_site_lbl, page.setup_site_txt)})),
      Framed(page.setup_sources_frm,
             Column({Field(kLongCaptions, page.setup_musicbrainz_lbl, page.setup_musicbrainz_txt),
                     page.setup_contact_lbl, page.setup_contact_txt})),
      Framed(page.setup_http_frm, Row({Stretch(1, Field(kLongCaptions, page.setup_cgi_lbl, page.setup_cgi_txt)),
                                       page.setup_httpport_lbl, page.setup_httpport_txt})),
      Framed(page.setup_proxy_frm,
             Column({page.setup_proxy_chk,
                     Row({Stretch(1, Field(kLongCaptions, page.setup_server_lbl, page.setup_proxyname_txt)),
                          page.setup_proxyport_lbl, page.setup_proxyport_txt})})),
      Spacer(),
      Row({Spacer(), page.setup_ok_btn}),
  });
  return Gap(kWideGap, Row({Stretch(1, names), Stretch(1, network)}));
}

void TranslateSetupPage(SetupPage& page, Context& context) {
  SetCaptions(context, {
                           {page.setup_lngfrm, message::kLanguage},
                           {page.setup_currentlng_lbl, message::kChooseLanguage},
                           {page.setup_ok_btn, message::kOk},
                           {page.setup_internet_frm, message::kInternet},
                           {page.setup_bypass_chk, message::kBypass},
                           {page.setup_autoupd_chk, message::kAutoUpdate},
                           {page.setup_renamer_frm, message::kRenamer},
                           {page.setup_choosepattern_lbl, message::kPatternColon},
                           {page.setup_tags_frm, message::kTags},
                           {page.setup_tagsask_opt, message::kAskStyle},
                           {page.setup_tagsstandard_opt, message::kStandardStyle},
                           {page.setup_tagsclassic_opt, message::kClassicStyle},
                           {page.setup_playlist_frm, message::kPlaylists},
                           {page.setup_plspat_lbl, message::kPatternColon},
                           {page.setup_plsalb_opt, message::kPlaylistInAlbum},
                           {page.setup_plsparent_opt, message::kPlaylistInParent},
                           {page.setup_plsspec_opt, message::kPlaylistInFolder},
                           {page.setup_plsbrowse_btn, message::kBrowse},
                           {page.setup_freedb_frm, message::kFreeDb},
                           {page.setup_choosefreedb_lbl, message::kChooseServer},
                           {page.setup_site_lbl, message::kFreeDbSite},
                           {page.setup_sources_frm, message::kOtherSources},
                           {page.setup_musicbrainz_lbl, message::kMusicBrainzServer},
                           {page.setup_contact_lbl, message::kContact},
                           {page.setup_proxy_frm, message::kProxy},
                           {page.setup_proxy_chk, message::kUseProxy},
                           {page.setup_server_lbl, message::kServerColon},
                           {page.setup_proxyport_lbl, message::kPortColon},
                           {page.setup_http_frm, message::kHttpConfig},
                           {page.setup_cgi_lbl, message::kCgiPath},
                           {page.setup_httpport_lbl, message::kHttpPort},
                           {page.setup_help_frm, message::kTokenLegend},
                       });
  page.setup_patterndef_lbl[0].SetText(TokenLines(context, 1, {message::kArtist, message::kTitle, message::kAlbum}));
  page.setup_patterndef_lbl[1].SetText(
      TokenLines(context, 4, {message::kYear, message::kGenre, message::kTrackNumber}));
}

}  // namespace tagrix
