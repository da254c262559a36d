#include "album/album_page.h"

#include <memory>

#include "album/apply.h"
#include "album/fetch.h"
#include "album/file_list.h"
#include "album/search.h"
#include "album/undo.h"
#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/rename_pattern.h"
#include "dialogs/genre.h"
#include "dialogs/statistics.h"
#include "dialogs/trackedit.h"
#include "freedb/http_client.h"

namespace tagrix {
namespace {

constexpr int kHalf = 380;  // least width of the two halves, the same above and below
constexpr int kStepHeight = 34;

Node Labelled(Label& label, Control& field) { return Row({MinSize(44, 0, label), Stretch(1, field)}); }

// A tick with a sample of what it makes.
Node Sampled(CheckBox& option, Label& sample) { return Row({MinSize(150, 0, option), Stretch(1, sample)}); }

Node Results(AlbumPage& page) {
  const Node albums =
      Framed(page.alb_frm, Row({Stretch(1, MinSize(0, 70, page.resalb_lst)), Column({page.more_btn, Spacer()})}));
  const Node disc =
      Column({Spacer(), Labelled(page.artist_lbl, page.artist_txt), Labelled(page.album_lbl, page.album_txt),
              Row({MinSize(44, 0, page.year_lbl), page.year_txt, MinSize(44, 0, page.genre_lbl),
                   Stretch(1, page.genre_txt), page.helpgenre_btn}),
              Spacer()});
  return Framed(page.res_frm,
                Gap(18, Row({Stretch(1, MinSize(kHalf, 0, albums)), Stretch(1, MinSize(kHalf, 0, disc))})));
}

// The files beside the tracks that they are to become, row by row.
Node Match(AlbumPage& page) {
  const Node buttons = Column({Row({Stretch(1, page.up_btn), Stretch(1, page.down_btn)}), page.delete_btn,
                               page.clear_btn, page.ghost_btn, page.autosort_btn, page.info_btn, Spacer()});
  return Row({Stretch(1, MinSize(kHalf, 0, Framed(page.files_frm, Row({Stretch(1, page.mp3_lst), buttons})))),
              Stretch(1, MinSize(kHalf, 0, Framed(page.tracks_frm, page.tracks_lst)))});
}

Node Doing(AlbumPage& page) {
  const Node options =
      Framed(page.options_frm,
             Row({Stretch(1, Column({Sampled(page.ren_chk, page.test_lbl), Sampled(page.pls_chk, page.pls_lbl)})),
                  Column({page.ID3v2_chk, page.ID3v1_chk})}));
  const auto step = [](Button& button) { return MinSize(100, kStepHeight, button); };
  const Node steps =
      Framed(page.steps_frm, Row({step(page.go_btn), step(page.fetch_btn), step(page.apply_btn), step(page.undo_btn)}));
  return Row({Stretch(1, options), steps});
}

void WireFileList(AlbumPage& page, Context& context) {
  page.browse_btn.clicked = Command(context, [&] { BrowseClicked(page, context); });
  page.up_btn.clicked = Command(context, [&] { MoveUp(page); });
  page.down_btn.clicked = Command(context, [&] { MoveDown(page); });
  page.delete_btn.clicked = Command(context, [&] { DeleteSelected(page); });
  page.clear_btn.clicked = Command(context, [&] { ClearFiles(page); });
  page.ghost_btn.clicked = Command(context, [&] { AddFakes(page, 1); });
  page.autosort_btn.clicked = Command(context, [&] { AutoSortClicked(page, context); });
  page.info_btn.clicked =
      Command(context, [&] { ShowStatistics(context, page.path_txt.Text(), page.mp3_lst, page.new_lst); });
  page.mp3_lst.selectionChanged = Notice(context, [&] { UpdateFileButtons(page); });
  page.mp3_lst.dragged = Command(context, [&](int from, int to) { DragEntry(page, from, to); });
  page.mp3_lst.keyPressed = Command(context, [&](ListKey key) {
    if (key == ListKey::Delete) DeleteSelected(page);
    if (key == ListKey::MoveUp) MoveUp(page);
    if (key == ListKey::MoveDown) MoveDown(page);
  });
}

void WireDisc(AlbumPage& page, Context& context) {
  // Listens to the socket for as long as the handlers that use it are there.
  const auto http = std::make_shared<HttpClient>(context);
  page.go_btn.clicked = Command(context, [&, http] { GoClicked(page, context, *http); });
  page.more_btn.clicked = Command(context, [&, http] { MoreClicked(page, context, *http); });
  page.fetch_btn.clicked = Command(context, [&, http] { FetchAlbum(page, context, *http); });
  page.resalb_lst.doubleClicked = [&](int) { page.fetch_btn.Click(); };
  page.tracks_lst.doubleClicked = Command(context, [&](int) { EditTrackName(context, page.tracks_lst, page.new_lst); });
  page.helpgenre_btn.clicked = Command(context, [&] { ChooseGenre(context, page.genre_txt); });
  page.apply_btn.clicked = Command(context, [&] { ApplyClicked(page, context); });
  page.undo_btn.clicked = Command(context, [&] { UndoClicked(page, context); });
}

}  // namespace

Node AlbumLayout(AlbumPage& page) {
  const Node folder = Row({Stretch(1, page.path_txt), page.browse_btn});
  return Framed(page.session_frm, Column({folder, Results(page), Stretch(1, Match(page)), Doing(page)}));
}

void InitAlbumPage(AlbumPage& page, Context& context) {
  WireFileList(page, context);
  WireDisc(page, context);
  page.path_txt.SetReadOnly(true);  // always the folder that the files were read from
  page.mp3_lst.itemTooltips = page.tracks_lst.itemTooltips = page.resalb_lst.itemTooltips = true;
  page.mp3_lst.mark = [&](int i) { return IsFakeTrack(page.mp3_lst.ItemText(i)) ? RowMark::Dim : RowMark::None; };
  page.up_btn.SetImage(context.programFolder + L"\\skin\\up.ico", 16);
  page.down_btn.SetImage(context.programFolder + L"\\skin\\down.ico", 16);
  for (CheckBox* option : {&page.ren_chk, &page.pls_chk, &page.ID3v2_chk, &page.ID3v1_chk}) option->SetChecked(true);
  for (Button* button : {&page.more_btn, &page.fetch_btn, &page.apply_btn, &page.undo_btn}) button->SetEnabled(false);
  UpdateFileButtons(page);
}

void TranslateAlbumPage(AlbumPage& page, Context& context) {
  SetCaptions(context, {{page.files_frm, message::kFiles},       {page.res_frm, message::kResults},
                        {page.alb_frm, message::kAlbums},        {page.tracks_frm, message::kTracks},
                        {page.steps_frm, message::kSteps},       {page.options_frm, message::kOptions},
                        {page.browse_btn, message::kBrowse},     {page.delete_btn, message::kDelete},
                        {page.clear_btn, message::kClear},       {page.ghost_btn, message::kAddFake},
                        {page.autosort_btn, message::kAutoSort}, {page.info_btn, message::kStatistics},
                        {page.more_btn, message::kMore},         {page.artist_lbl, message::kArtist},
                        {page.album_lbl, message::kAlbum},       {page.year_lbl, message::kYear},
                        {page.genre_lbl, message::kGenre},       {page.helpgenre_btn, message::kGenreCaption},
                        {page.ren_chk, message::kRename},        {page.pls_chk, message::kCreatePlaylist},
                        {page.ID3v2_chk, message::kId3v2},       {page.ID3v1_chk, message::kId3v1},
                        {page.undo_btn, message::kUndo}});
  page.go_btn.SetText(L"1 - " + context.Text(message::kSearch));
  page.fetch_btn.SetText(L"2 - " + context.Text(message::kRetrieve));
  page.apply_btn.SetText(L"3 - " + context.Text(message::kApply));
  // The settings page is the one that changes the patterns, and translates the window afterwards.
  page.test_lbl.SetText(PatternSample(RenamePattern(context), CurrentYear(context)));
  page.pls_lbl.SetText(PlaylistSample(PlaylistPattern(context), CurrentYear(context)));
}

}  // namespace tagrix
