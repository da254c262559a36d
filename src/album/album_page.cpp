#include "album/album_page.h"

#include "core/messages.h"
#include "core/notices.h"
#include "session/rename_pattern.h"

namespace tagrix {
namespace {

constexpr int kHalf = 380;  // least width of the two halves, the same above and below

Node Labelled(Label& label, Control& field) { return Row({MinSize(44, 0, label), Stretch(1, field)}); }

// A tick with a sample of what it makes.
Node Sampled(CheckBox& option, Label& sample) { return Row({MinSize(164, 0, option), Stretch(1, sample)}); }

Node Results(AlbumPage& page) {
  const Node albums =
      Framed(page.alb_frm, Row({Stretch(1, MinSize(0, 70, page.resalb_lst)), Column({page.more_btn, Spacer()})}));
  const Node disc =
      Column({Spacer(), Labelled(page.artist_lbl, page.artist_txt), Labelled(page.album_lbl, page.album_txt),
              Row({MinSize(44, 0, page.year_lbl), page.year_txt, MinSize(44, 0, page.genre_lbl),
                   Stretch(1, page.genre_txt), page.helpgenre_btn}),
              Spacer()});
  return Framed(page.res_frm,
                Gap(kWideGap, Row({Stretch(1, MinSize(kHalf, 0, albums)), Stretch(1, MinSize(kHalf, 0, disc))})));
}

// The files beside the tracks that they are to become, row by row.
Node Match(AlbumPage& page) {
  const Node buttons = Column({Row({Stretch(1, page.up_btn), Stretch(1, page.down_btn)}), page.delete_btn,
                               page.clear_btn, page.ghost_btn, page.autosort_btn, page.info_btn, Spacer()});
  const Node table = Column({Stretch(1, page.mp3_lst), page.verdict_lbl});
  return Framed(page.files_frm, Row({Stretch(1, table), buttons}));
}

Node Doing(AlbumPage& page) {
  const Node options =
      Framed(page.options_frm,
             Row({Stretch(1, Column({Sampled(page.ren_chk, page.test_lbl), Sampled(page.pls_chk, page.pls_lbl)})),
                  Column({page.ID3v2_chk, page.ID3v1_chk})}));
  const auto step = [](Button& button) { return MinSize(100, kTallButton, button); };
  const Node steps =
      Framed(page.steps_frm, Row({step(page.go_btn), step(page.fetch_btn), step(page.apply_btn), step(page.undo_btn)}));
  return Row({Stretch(1, options), steps});
}

}  // namespace

Node AlbumLayout(AlbumPage& page) {
  const Node folder = Row({Stretch(1, page.path_txt), page.browse_btn});
  return Framed(page.session_frm, Column({folder, Results(page), Stretch(1, Match(page)), Doing(page)}));
}

void ShowHitCount(AlbumPage& page, Context& context) {
  const int count = page.resalb_lst.Count();
  page.alb_frm.SetText(context.Text(message::kAlbums) + (count == 0 ? L"" : L" (" + std::to_wstring(count) + L")"));
}

void TranslateAlbumPage(AlbumPage& page, Context& context) {
  SetCaptions(context, {{page.files_frm, message::kFilesAndTracks},
                        {page.res_frm, message::kResults},
                        {page.alb_frm, message::kAlbums},
                        {page.steps_frm, message::kSteps},
                        {page.options_frm, message::kOptions},
                        {page.browse_btn, message::kBrowse},
                        {page.delete_btn, message::kDelete},
                        {page.clear_btn, message::kClear},
                        {page.ghost_btn, message::kAddFake},
                        {page.autosort_btn, message::kAutoSort},
                        {page.info_btn, message::kStatistics},
                        {page.more_btn, message::kMore},
                        {page.artist_lbl, message::kArtist},
                        {page.album_lbl, message::kAlbum},
                        {page.year_lbl, message::kYear},
                        {page.genre_lbl, message::kGenre},
                        {page.helpgenre_btn, message::kGenreCaption},
                        {page.ren_chk, message::kRename},
                        {page.pls_chk, message::kCreatePlaylist},
                        {page.ID3v2_chk, message::kId3v2},
                        {page.ID3v1_chk, message::kId3v1},
                        {page.undo_btn, message::kUndo}});
  ShowHitCount(page, context);
  page.path_txt.SetSpokenName(context.Text(message::kAlbumFolder));
  page.up_btn.SetTooltip(context.Text(message::kMoveUp));
  page.down_btn.SetTooltip(context.Text(message::kMoveDown));
  page.mp3_lst.SetHint(context.Text(message::kAlbumHint));
  page.resalb_lst.SetHint(context.Text(message::kResultsHint));
  page.go_btn.SetText(L"1 - " + context.Text(message::kSearch));
  page.fetch_btn.SetText(L"2 - " + context.Text(message::kRetrieve));
  page.apply_btn.SetText(L"3 - " + context.Text(message::kApply));
  // The settings page is the one that changes the patterns, and translates the window afterwards.
  const std::wstring year = std::to_wstring(context.clock.CurrentYear());
  page.test_lbl.SetText(PatternSample(context.settings.Get(setting::kPattern), year));
  page.pls_lbl.SetText(PlaylistSample(context.settings.Get(setting::kPlaylist), year));
}

}  // namespace tagrix
