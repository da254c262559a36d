// The setup page's controls: every setting, the legend of the pattern tokens and a sample of both patterns.
#ifndef TAGRIX_TOOLS_SETUP_SETUP_PAGE_H
#define TAGRIX_TOOLS_SETUP_SETUP_PAGE_H

#include <array>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {

struct SetupPage {
  Frame setup_lngfrm{"setup_lngfrm"};
  Label setup_currentlng_lbl{"setup_currentlng_lbl"};
  ComboBox setup_lngcmb{"setup_lngcmb"};
  Button setup_ok_btn{"setup_ok_btn"};

  Frame setup_internet_frm{"setup_internet_frm"};
  CheckBox setup_bypass_chk{"setup_bypass_chk"}, setup_autoupd_chk{"setup_autoupd_chk"};

  Frame setup_renamer_frm{"setup_renamer_frm"};
  Label setup_choosepattern_lbl{"setup_choosepattern_lbl"};
  ComboBox setup_pat_cmb{"setup_pat_cmb", true};
  Label setup_pattern_lbl{"setup_pattern_lbl", LabelStyle::Literal};  // sample

  Frame setup_tags_frm{"setup_tags_frm"};
  OptionGroup tagStyle;
  OptionButton setup_tagsask_opt{"setup_tagsask_opt", tagStyle};
  OptionButton setup_tagsstandard_opt{"setup_tagsstandard_opt", tagStyle};
  OptionButton setup_tagsclassic_opt{"setup_tagsclassic_opt", tagStyle};

  Frame setup_playlist_frm{"setup_playlist_frm"};
  Label setup_plspat_lbl{"setup_plspat_lbl"};
  ComboBox setup_pls_cmb{"setup_pls_cmb", true};
  Label setup_testpls_lbl{"setup_testpls_lbl", LabelStyle::Literal};  // sample
  OptionGroup playlistPlace;
  OptionButton setup_plsalb_opt{"setup_plsalb_opt", playlistPlace};
  OptionButton setup_plsparent_opt{"setup_plsparent_opt", playlistPlace};
  OptionButton setup_plsspec_opt{"setup_plsspec_opt", playlistPlace};
  TextBox setup_plsfolder_txt{"setup_plsfolder_txt"};
  Button setup_plsbrowse_btn{"setup_plsbrowse_btn"};

  Frame setup_freedb_frm{"setup_freedb_frm"};
  Label setup_choosefreedb_lbl{"setup_choosefreedb_lbl"}, setup_site_lbl{"setup_site_lbl"};
  ComboBox setup_freedb_cmb{"setup_freedb_cmb"};
  TextBox setup_site_txt{"setup_site_txt"};

  Frame setup_sources_frm{"setup_sources_frm"};
  Label setup_contact_lbl{"setup_contact_lbl"}, setup_musicbrainz_lbl{"setup_musicbrainz_lbl"};
  TextBox setup_contact_txt{"setup_contact_txt"}, setup_musicbrainz_txt{"setup_musicbrainz_txt"};

  Frame setup_proxy_frm{"setup_proxy_frm"};
  CheckBox setup_proxy_chk{"setup_proxy_chk"};
  Label setup_server_lbl{"setup_server_lbl"}, setup_proxyport_lbl{"setup_proxyport_lbl"};
  TextBox setup_proxyname_txt{"setup_proxyname_txt"}, setup_proxyport_txt{"setup_proxyport_txt"};

  Frame setup_http_frm{"setup_http_frm"};
  Label setup_cgi_lbl{"setup_cgi_lbl"}, setup_httpport_lbl{"setup_httpport_lbl"};
  TextBox setup_cgi_txt{"setup_cgi_txt"}, setup_httpport_txt{"setup_httpport_txt"};

  Frame setup_help_frm{"setup_help_frm"};
  std::array<Label, 2> setup_patterndef_lbl{Label("setup_patterndef_lbl0"), Label("setup_patterndef_lbl1")};
};

Node SetupLayout(SetupPage& page);
// Sets the captions and the legend from the language texts.
void TranslateSetupPage(SetupPage& page, Context& context);

}  // namespace tagrix

#endif
