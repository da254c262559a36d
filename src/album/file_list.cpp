#include "album/file_list.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "album/album_table.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/messages.h"
#include "dialogs/autosort.h"
#include "dialogs/folder_chooser.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

// The journal of the last Apply no longer lines up with the list.
void ForgetUndo(AlbumPage& page) { page.undo_btn.SetEnabled(false); }

void ShowFiles(AlbumPage& page) {
  ShowTable(page);
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
  const int from = page.mp3_lst.SelectedIndex(), to = from + by, count = FileCount(page.session);
  if (page.mp3_lst.SelectedCount() == 1 && from < count && to >= 0 && to < count) MoveEntry(page, from, to);
}

void OpenChosen(AlbumPage& page, Context& context, const ChosenFolder& chosen) {
  std::vector<AlbumFile> files = ReadAlbumFolder(context.files, chosen.path, chosen.format);
  StartOver(page);
  ShowHitCount(page, context);
  page.session.folder = chosen.path;
  page.session.format = chosen.format;
  page.session.files = std::move(files);
  page.path_txt.SetText(chosen.path);
  const bool taggable = EqualIgnoringCase(chosen.format, L"mp3");
  page.ID3v1_chk.SetEnabled(taggable);
  page.ID3v2_chk.SetEnabled(taggable);
  page.mp3_lst.Clear();
  ShowFiles(page);
}

}  // namespace

void BrowseClicked(AlbumPage& page, Context& context) {
  if (const auto chosen = ChooseFolder(context, ChooserMode::Album)) OpenChosen(page, context, *chosen);
}

void OpenAlbum(AlbumPage& page, Context& context, const std::wstring& path) {
  const auto found = context.files.Find(path);
  if (!found) return context.prompts.Message(FillMessage(context.Text(message::kNoSuchFolder), {path}));
  const std::wstring folder = WithoutBackslash(found->folder ? path : std::wstring(FolderPart(path)));
  const auto holds = [&](std::wstring_view format) {
    if (!found->folder) return HasFormat(found->name, format);
    return !FilesOfFormat(context.files, WithBackslash(folder), std::wstring(format)).empty();
  };
  const auto* const format = std::find_if(std::begin(kAudioFormats), std::end(kAudioFormats), holds);
  OpenChosen(page, context, {folder, std::wstring(format == std::end(kAudioFormats) ? kAudioFormats[0] : *format)});
  context.settings.Put(setting::kLastDir, WithBackslash(folder).size() > 3 ? folder : WithBackslash(folder));
}

void ReloadAlbum(AlbumPage& page, Context& context) {
  if (page.session.folder.empty()) return;
  std::vector<AlbumFile> now = ReadAlbumFolder(context.files, page.session.folder, page.session.format);
  const auto sameName = [](const AlbumFile& file) {
    return [&file](const AlbumFile& other) { return EqualIgnoringCase(file.name, other.name); };
  };
  // Those that are gone leave; new ones come last.
  std::vector<AlbumFile>& files = page.session.files;
  std::erase_if(
      files, [&](const AlbumFile& file) { return !file.fake && std::none_of(now.begin(), now.end(), sameName(file)); });
  std::erase_if(now, [&](const AlbumFile& file) { return std::any_of(files.begin(), files.end(), sameName(file)); });
  for (AlbumFile& file : files) file.milliseconds = 0;  // they may have changed
  std::move(now.begin(), now.end(), std::back_inserter(files));
  ForgetUndo(page);
  ShowFiles(page);
}

void MoveUp(AlbumPage& page) { MoveSelected(page, -1); }
void MoveDown(AlbumPage& page) { MoveSelected(page, 1); }

void DragEntry(AlbumPage& page, int from, int to) {
  const int last = FileCount(page.session) - 1;
  if (from <= last && from != std::min(to, last)) MoveEntry(page, from, std::min(to, last));
}

void DeleteSelected(AlbumPage& page) {
  const int first = page.mp3_lst.SelectedIndex();
  if (first < 0 || first >= FileCount(page.session)) return;
  ForgetUndo(page);
  std::vector<AlbumFile> left;
  for (int i = 0; i < FileCount(page.session); ++i) {
    if (!page.mp3_lst.Selected(i)) left.push_back(std::move(page.session.files[static_cast<std::size_t>(i)]));
  }
  page.session.files = std::move(left);
  ShowFiles(page);
  // What moved up into the gap is next, so that the keyboard goes on from there.
  page.mp3_lst.SelectOnly(std::min(first, FileCount(page.session) - 1));
  UpdateFileButtons(page);
}

void ClearFiles(AlbumPage& page) {
  ForgetUndo(page);
  page.session.files.clear();
  page.mp3_lst.Clear();
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
  const int selected = page.mp3_lst.SelectedIndex(), count = FileCount(page.session);
  const bool one = page.mp3_lst.SelectedCount() == 1 && selected < count;
  page.up_btn.SetEnabled(one && selected > 0);
  page.down_btn.SetEnabled(one && selected < count - 1);
  page.delete_btn.SetEnabled(selected >= 0 && selected < count);
  page.clear_btn.SetEnabled(count > 0);
  page.info_btn.SetEnabled(count > 0);
}

void InitResFrm(AlbumPage& page) {
  for (TextBox* text : {&page.artist_txt, &page.album_txt, &page.genre_txt, &page.year_txt}) text->SetText(L"");
  page.session.disc = Disc();
  page.tracks_lst.Clear();
  ShowTable(page);
}

}  // namespace tagrix
