#include "album/file_list.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/letter_case.h"
#include "core/messages.h"
#include "dialogs/autosort.h"
#include "dialogs/folder_chooser.h"

namespace tagrix {
namespace {

// The journal of the last Apply no longer lines up with the list.
void ForgetUndo(AlbumPage& page) { page.undo_btn.SetEnabled(false); }

// Brings the list up to date with the session.
void ShowFiles(AlbumPage& page) {
  ListBox& list = page.mp3_lst;
  const std::vector<AlbumFile>& files = page.session.files;
  if (list.Count() > FileCount(page.session)) list.Clear();
  int i = 0;
  for (; i < list.Count(); ++i) list.SetItemText(i, files[static_cast<std::size_t>(i)].name);
  std::vector<std::wstring> names;
  for (; i < FileCount(page.session); ++i) names.push_back(files[static_cast<std::size_t>(i)].name);
  list.Append(std::move(names));
  UpdateFileButtons(page);
}

// Nothing of the former album is left to be retrieved or applied.
void StartOver(AlbumPage& page) {
  ForgetUndo(page);
  page.session = AlbumSession();
  page.resalb_lst.Clear();
  InitResFrm(page);
  for (Button* button : {&page.fetch_btn, &page.apply_btn, &page.more_btn}) button->SetEnabled(false);
}

void MoveEntry(AlbumPage& page, int from, int to) {
  MoveFile(page.session, from, to);
  ShowFiles(page);
  page.mp3_lst.SelectOnly(to);
  UpdateFileButtons(page);
}

void MoveSelected(AlbumPage& page, int by) {
  const int from = page.mp3_lst.SelectedIndex(), to = from + by;
  if (page.mp3_lst.SelectedCount() == 1 && to >= 0 && to < page.mp3_lst.Count()) MoveEntry(page, from, to);
}

}  // namespace

void BrowseClicked(AlbumPage& page, Context& context) {
  const auto chosen = ChooseFolder(context, ChooserMode::Album);
  if (!chosen) return;
  std::vector<AlbumFile> files = ReadAlbumFolder(context.files, chosen->path, chosen->format);
  StartOver(page);
  page.session.folder = chosen->path;
  page.session.format = chosen->format;
  page.session.files = std::move(files);
  page.path_txt.SetText(chosen->path);
  const bool taggable = EqualIgnoringCase(chosen->format, L"mp3");
  page.ID3v1_chk.SetEnabled(taggable);
  page.ID3v2_chk.SetEnabled(taggable);
  page.mp3_lst.Clear();
  ShowFiles(page);
}

void MoveUp(AlbumPage& page) { MoveSelected(page, -1); }
void MoveDown(AlbumPage& page) { MoveSelected(page, 1); }
void DragEntry(AlbumPage& page, int from, int to) { MoveEntry(page, from, to); }

void DeleteSelected(AlbumPage& page) {
  const int first = page.mp3_lst.SelectedIndex();
  if (first < 0) return;
  ForgetUndo(page);
  std::vector<AlbumFile> left;
  for (int i = 0; i < page.mp3_lst.Count(); ++i) {
    if (!page.mp3_lst.Selected(i)) left.push_back(std::move(page.session.files[static_cast<std::size_t>(i)]));
  }
  page.session.files = std::move(left);
  ShowFiles(page);
  // What moved up into the gap is next, so that the keyboard goes on from there.
  page.mp3_lst.SelectOnly(std::min(first, page.mp3_lst.Count() - 1));
  UpdateFileButtons(page);
}

void ClearFiles(AlbumPage& page) {
  ForgetUndo(page);
  page.session.files.clear();
  ShowFiles(page);
}

void AddFakes(AlbumPage& page, int count) {
  AddFakeFiles(page.session, count);
  ShowFiles(page);
}

void AutoSortClicked(AlbumPage& page, Context& context) {
  if (page.session.files.empty()) return;
  if (!CanBeSorted(page.session)) {
    context.prompts.Message(context.Text(message::kAutoSortGate));
    return;
  }
  AutoSort(context, page.session);
  ShowFiles(page);
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
  page.session.disc = Disc();
  page.tracks_lst.Clear();
}

}  // namespace tagrix
