// The album page's controls: the session's lists, the disc record, the options and the buttons.
#ifndef TAGRIX_ALBUM_ALBUM_PAGE_H
#define TAGRIX_ALBUM_ALBUM_PAGE_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "session/album_session.h"
#include "session/name_plan.h"

namespace tagrix {

// The table shows the session: position i of `mp3_lst` belongs to position i of `tracks_lst`.
struct AlbumPage {
  Frame session_frm{"session_frm"};  // around everything, not drawn: disabled while the session is being applied

  // Files: names with extension and without folder. The list is the table of both: a row for each file or track.
  Frame files_frm{"album_files_frm"};
  TextBox path_txt{"path_txt"};
  ListBox mp3_lst{"mp3_lst", true};
  Label verdict_lbl{"verdict_lbl", LabelStyle::Literal};
  Button browse_btn{"browse_btn"}, up_btn{"up_btn"}, down_btn{"down_btn"}, delete_btn{"delete_btn"};
  Button clear_btn{"clear_btn"}, ghost_btn{"ghost_btn"}, autosort_btn{"autosort_btn"}, info_btn{"info_btn"};

  // Results of a search: the albums found.
  Frame res_frm{"res_frm"}, alb_frm{"alb_frm"};
  ListBox resalb_lst{"resalb_lst"};
  Button more_btn{"more_btn"};

  // The disc record.
  ListBox tracks_lst{"tracks_lst"};  // "[01] Title"; shown as a column of the table
  TextBox artist_txt{"artist_txt"}, album_txt{"album_txt"}, year_txt{"year_txt"}, genre_txt{"genre_txt"};
  Label artist_lbl{"artist_lbl"}, album_lbl{"album_lbl"}, year_lbl{"year_lbl"}, genre_lbl{"genre_lbl"};
  Button helpgenre_btn{"helpgenre_btn"};

  // What Apply does, with samples of the names it makes.
  Frame options_frm{"options_frm"};
  CheckBox ren_chk{"ren_chk"}, pls_chk{"pls_chk"}, ID3v2_chk{"ID3v2_chk"}, ID3v1_chk{"ID3v1_chk"};
  Label test_lbl{"test_lbl", LabelStyle::Literal}, pls_lbl{"pls_lbl", LabelStyle::Literal};

  Frame steps_frm{"steps_frm"};
  Button go_btn{"go_btn"}, fetch_btn{"fetch_btn"}, apply_btn{"apply_btn"}, undo_btn{"undo_btn"};

  AlbumSession session;
  std::optional<NamePlan> names;       // what Apply will call the files; none: to be made
  std::vector<std::wstring> outcomes;  // what it did with them, in words, until the table changes
  std::function<void()> tableChanged;  // the files, the tracks or the lengths are others now
  bool settled = false;                // the disc's details were applied, or the user was asked whether they may go
};

// Where the page's controls stand.
Node AlbumLayout(AlbumPage& page);
// Says above the list how many albums were found.
void ShowHitCount(AlbumPage& page, Context& context);
// Sets the captions from the language texts; those of the table: see TranslateAlbumTable.
void TranslateAlbumPage(AlbumPage& page, Context& context);

}  // namespace tagrix

#endif
