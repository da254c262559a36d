#include "album/album_mod.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "album/album_sources.h"
#include "album/album_table.h"
#include "album/apply_album.h"
#include "album/fetch.h"
#include "album/file_list.h"
#include "album/search.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "dialogs/genre_picker.h"
#include "dialogs/statistics.h"
#include "views/file_menu.h"

namespace tagrix {
namespace {

// The title is what a file is named after.
void EditSelectedTrack(AlbumPage& page) {
  const int row = page.mp3_lst.SelectedIndex();
  if (row >= 0 && row < page.tracks_lst.Count()) page.tracks_lst.DoubleClickItem(row);
}

std::vector<MenuEntry> TableMenu(AlbumPage& page, Context& context) {
  std::vector<std::wstring> paths;
  for (int i = 0; i < FileCount(page.session); ++i) {
    const AlbumFile& file = page.session.files[static_cast<std::size_t>(i)];
    if (page.mp3_lst.Selected(i) && !file.fake) paths.push_back(AlbumPath(page.session, file.name));
  }
  std::vector<MenuEntry> menu = FileMenu(context, paths);
  const int row = page.mp3_lst.SelectedIndex();
  if (page.mp3_lst.SelectedCount() == 1 && row < page.tracks_lst.Count()) {
    menu.push_back({context.Text(message::kEditRow), [&page] { EditSelectedTrack(page); }});
  }
  return menu;
}

void WireFileList(AlbumPage& page, Context& context) {
  page.browse_btn.clicked = Command(context, [&] { BrowseClicked(page, context); });
  page.up_btn.clicked = Command(context, [&] { MoveUp(page); });
  page.down_btn.clicked = Command(context, [&] { MoveDown(page); });
  page.delete_btn.clicked = Command(context, [&] { DeleteSelected(page); });
  page.clear_btn.clicked = Command(context, [&] { ClearFiles(page); });
  page.ghost_btn.clicked = Command(context, [&] { AddFakes(page, 1); });
  page.autosort_btn.clicked = Command(context, [&] { AutoSortClicked(page, context); });
  page.info_btn.clicked = Command(context, [&] { ShowStatistics(context, page.session); });
  page.mp3_lst.selectionChanged = Notice(context, [&] { UpdateFileButtons(page); });
  page.mp3_lst.dragged = Command(context, [&](int from, int to) { DragEntry(page, from, to); });
  const auto change = Command(context, [&](ListKey key) {
    if (key == ListKey::Delete) DeleteSelected(page);
    if (key == ListKey::MoveUp) MoveUp(page);
    if (key == ListKey::MoveDown) MoveDown(page);
  });
  page.mp3_lst.keyPressed = [&page, change](ListKey key) {
    if (key == ListKey::Rename) return EditSelectedTrack(page);  // a command by itself
    change(key);
  };
  page.mp3_lst.menu = [&] { return TableMenu(page, context); };
}

void WireDisc(AlbumPage& page, Context& context) {
  // They listen to the socket for as long as the handlers that use it are there.
  const auto sources = std::make_shared<AlbumSources>(context);
  page.go_btn.clicked = Command(context, [&, sources] { GoClicked(page, context, sources->List()); });
  page.more_btn.clicked = Command(context, [&, sources] { MoreClicked(page, context, sources->List()); });
  page.fetch_btn.clicked = Command(context, [&, sources] { FetchAlbum(page, context, sources->List()); });
  page.resalb_lst.doubleClicked = [&](int) { page.fetch_btn.Click(); };
  page.tracks_lst.doubleClicked = Command(context, [&](int) { EditTrack(page, context); });
  page.helpgenre_btn.clicked = Command(context, [&] {
    ChooseGenre(context, page.genre_txt);
    page.genre_txt.edited();
  });
  page.apply_btn.clicked = Command(context, [&] { ApplyClicked(page, context); });
  page.undo_btn.clicked = Command(context, [&] { UndoClicked(page, context); });
}

}  // namespace

void InitAlbumPage(AlbumPage& page, Context& context) {
  WireFileList(page, context);
  WireDisc(page, context);
  InitAlbumTable(page, context);
  page.path_txt.SetReadOnly(true);  // always the folder that the files were read from
  page.up_btn.SetImage(context.programFolder + L"\\skin\\up.ico", 16);
  page.down_btn.SetImage(context.programFolder + L"\\skin\\down.ico", 16);
  for (CheckBox* option : {&page.ren_chk, &page.pls_chk, &page.ID3v2_chk, &page.ID3v1_chk}) option->SetChecked(true);
  for (Button* button : {&page.more_btn, &page.fetch_btn, &page.apply_btn, &page.undo_btn}) button->SetEnabled(false);
  UpdateFileButtons(page);
}

bool MayLeaveAlbum(AlbumPage& page, Context& context) {
  if (!page.apply_btn.Enabled() || std::exchange(page.settled, true)) return true;
  return context.prompts.Question(context.Text(message::kLeaveAlbum));
}

}  // namespace tagrix
