#include "album/file_list.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"
#include "dialogs/autosort.h"
#include "dialogs/folder_chooser.h"

namespace tagrix {
namespace {

// The journal of the last Apply no longer lines up with the list.
void ForgetUndo(AlbumPage& page) { page.undo_btn.SetEnabled(false); }

// Nothing of the former album is left to be retrieved or applied.
void StartOver(AlbumPage& page) {
  ForgetUndo(page);
  for (ListBox* list : {&page.mp3_lst, &page.resalb_lst, &page.categ_lst, &page.discid_lst, &page.new_lst}) {
    list->Clear();
  }
  InitResFrm(page);
  page.path_txt.SetText(L"");
  for (Button* button : {&page.fetch_btn, &page.apply_btn, &page.more_btn}) button->SetEnabled(false);
  UpdateFileButtons(page);
}

// Exchanges texts with one neighbour after the other until the entry has arrived.
void MoveEntry(AlbumPage& page, int from, int to) {
  ListBox& list = page.mp3_lst;
  for (int step = from < to ? 1 : -1; from != to; from += step) {
    std::wstring neighbour = list.ItemText(from + step);
    list.SetItemText(from + step, list.ItemText(from));
    list.SetItemText(from, std::move(neighbour));
  }
  list.SelectOnly(to);
  UpdateFileButtons(page);
}

bool HoldsFake(const ListBox& list) {
  for (int i = 0; i < list.Count(); ++i) {
    if (IsFakeTrack(list.ItemText(i))) return true;
  }
  return false;
}

void MoveSelected(AlbumPage& page, int by) {
  const int from = page.mp3_lst.SelectedIndex(), to = from + by;
  if (page.mp3_lst.SelectedCount() == 1 && to >= 0 && to < page.mp3_lst.Count()) MoveEntry(page, from, to);
}

}  // namespace

void BrowseClicked(AlbumPage& page, Context& context) {
  StartOver(page);
  ChooseFolder(context, ChooserMode::Album, {.folder = &page.path_txt, .format = &page.format});
  if (page.path_txt.Text().empty()) return;
  const bool taggable = EqualIgnoringCase(page.format, L"mp3");
  page.ID3v1_chk.SetEnabled(taggable);
  page.ID3v2_chk.SetEnabled(taggable);
  page.mp3_lst.Append(FilesOfFormat(context.files, page.path_txt.Text(), page.format));
  SortList(page.mp3_lst);
  UpdateFileButtons(page);
}

void MoveUp(AlbumPage& page) { MoveSelected(page, -1); }
void MoveDown(AlbumPage& page) { MoveSelected(page, 1); }
void DragEntry(AlbumPage& page, int from, int to) { MoveEntry(page, from, to); }

void DeleteSelected(AlbumPage& page) {
  const int first = page.mp3_lst.SelectedIndex();
  if (first < 0) return;
  ForgetUndo(page);
  page.mp3_lst.RemoveSelected();
  // What moved up into the gap is next, so that the keyboard goes on from there.
  page.mp3_lst.SelectOnly(std::min(first, page.mp3_lst.Count() - 1));
  UpdateFileButtons(page);
}

void ClearFiles(AlbumPage& page) {
  ForgetUndo(page);
  page.mp3_lst.Clear();
  UpdateFileButtons(page);
}

void AddFakes(AlbumPage& page, int count) {
  page.mp3_lst.Append(std::vector<std::wstring>(static_cast<std::size_t>(count), kFakeTrack));
  UpdateFileButtons(page);
}

void AutoSortClicked(AlbumPage& page, Context& context) {
  const ListBox& list = page.mp3_lst;
  if (list.Count() == 0) return;
  if (HoldsFake(list) || list.Count() != page.new_lst.Count()) {
    context.prompts.Message(context.Text(message::kAutoSortGate));
    return;
  }
  AutoSort(context, page.path_txt.Text(), page.mp3_lst, page.new_lst);
  UpdateFileButtons(page);
}

void UpdateFileButtons(AlbumPage& page) {
  const ListBox& list = page.mp3_lst;
  const int selected = list.SelectedIndex();
  const bool one = list.SelectedCount() == 1;
  page.up_btn.SetEnabled(one && selected > 0);
  page.down_btn.SetEnabled(one && selected < list.Count() - 1);
  page.delete_btn.SetEnabled(selected >= 0);
  page.clear_btn.SetEnabled(list.Count() > 0);
  page.info_btn.SetEnabled(list.Count() > 0);
}

void InitResFrm(AlbumPage& page) {
  for (TextBox* text : {&page.artist_txt, &page.album_txt, &page.genre_txt, &page.year_txt}) text->SetText(L"");
  page.tracks_lst.Clear();
}

}  // namespace tagrix
