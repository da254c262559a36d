#include "tools/playlist/pls_mod.h"

#include <string>
#include <utility>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/choose_files.h"
#include "dialogs/folder_chooser.h"
#include "dialogs/rename_file.h"
#include "storage/m3u.h"
#include "storage/small_files.h"
#include "views/file_menu.h"

namespace tagrix {
namespace {

// Whether the playlist's lines are in the code page. A path that is makes a line that is.
bool FitsCodePage(const PlaylistPage& page, CodePage& codePage) {
  for (int i = 0; i < page.pls_lst.Count(); ++i) {
    const std::wstring& path = page.pls_lst.ItemText(i);
    if (!InCodePage(codePage, path) && !InCodePage(codePage, PlaylistLine(path, page.pls_output_txt.Text()))) {
      return false;
    }
  }
  return true;
}

// The playlist's lines; fewer than there are entries when the user cancels.
std::wstring PlaylistLines(const PlaylistPage& page, Progress& progress) {
  std::wstring lines;
  for (int i = 0; i < page.pls_lst.Count() && !progress.Cancelled(); ++i) {
    lines += PlaylistLine(page.pls_lst.ItemText(i), page.pls_output_txt.Text());
    progress.Percent(Percentage(i, page.pls_lst.Count()));
    progress.Pass(page.pls_lst.ItemText(i));
  }
  return lines;
}

// Moves the one selected entry by a place.
void MoveSelected(ListBox& list, int by) {
  const int from = list.SelectedIndex(), to = from + by;
  if (list.SelectedCount() == 1 && to >= 0 && to < list.Count()) list.MoveItem(from, to);
}

}  // namespace

void UpdatePlaylistGo(PlaylistPage& page, Context& context) {
  page.pls_go_btn.SetEnabled(!Trim(page.pls_name_txt.Text()).empty() && page.pls_lst.Count() > 0 &&
                             FolderExists(context.files, page.pls_output_txt.Text()));
}

void EnablePlaylistButtons(PlaylistPage& page, bool enabled) {
  for (Button* button :
       {&page.pls_go_btn, &page.pls_add_btn, &page.pls_addfolder_btn, &page.pls_delete_btn, &page.pls_reset_btn}) {
    button->SetEnabled(enabled);
  }
}

void AddPlaylistFiles(PlaylistPage& page, Context& context) {
  for (std::wstring& path : ChooseFiles(context, {MediaFilter(L"Media files")})) page.pls_lst.Add(std::move(path));
  UpdatePlaylistGo(page, context);
}

void AddPlaylistFolder(PlaylistPage& page, Context& context) {
  page.pls_lst.Append(ChooseAudioFiles(context, ChooserMode::PlaylistFiles, {}));
  UpdatePlaylistGo(page, context);
}

void DropOnPlaylist(PlaylistPage& page, Context& context, const std::vector<std::wstring>& paths) {
  page.pls_lst.Append(AudioFilesAmong(context, paths, ChooserMode::PlaylistFiles, {}));
  UpdatePlaylistGo(page, context);
}

void DeletePlaylistFiles(PlaylistPage& page, Context& context) {
  page.pls_lst.RemoveSelected();
  UpdatePlaylistGo(page, context);
}

void ResetPlaylist(PlaylistPage& page) { page.pls_lst.Clear(); }

void ChoosePlaylistOutput(PlaylistPage& page, Context& context) {
  if (const auto chosen = ChooseFolder(context, ChooserMode::PlaylistOutput)) page.pls_output_txt.SetText(chosen->path);
  UpdatePlaylistGo(page, context);
}

void WritePlaylist(PlaylistPage& page, Context& context) {
  const std::wstring& folder = page.pls_output_txt.Text();
  if (!FolderExists(context.files, folder)) {
    context.prompts.Message(FillMessage(context.Text(message::kNoSuchFolder), {folder}));
    return;
  }
  const std::wstring base = CleanAndTrimFileName(page.pls_name_txt.Text());
  if (base.empty()) {
    context.prompts.Message(context.Text(message::kNoPlaylistName));
    return;
  }
  const bool utf8 = !FitsCodePage(page, context.codePage);
  const std::wstring name = PlaylistFileName(base, utf8), target = WithBackslash(folder) + name;
  const bool replaces = FileExists(context.files, target);
  const std::wstring question = FillMessage(context.Text(message::kOverwritePlaylist), {name});
  if (replaces && !context.prompts.Question(question)) return;

  bool cancelled = false;
  {
    LongWork work(context, {&page.pls_go_btn, &page.pls_add_btn, &page.pls_addfolder_btn, &page.pls_delete_btn,
                            &page.pls_reset_btn});
    const std::wstring lines = PlaylistLines(page, work);
    cancelled = work.Cancelled();
    if (!cancelled) {
      WritePlaylistFile(context.files, context.codePage, target, lines, utf8);
    } else if (replaces) {
      context.files.Delete(target);
    }
  }
  if (cancelled) {
    ShowCancelMessage(context);
  } else if (utf8) {
    context.prompts.Message(FillMessage(context.Text(message::kPlaylistInUtf8), {name}));
  } else {
    context.prompts.Message(context.Text(message::kDone));
  }
}

void InitPlaylistPage(PlaylistPage& page, Context& context) {
  const auto wire = [&](Button& button, auto function) { button.clicked = Command(context, function); };
  wire(page.pls_add_btn, [&] { AddPlaylistFiles(page, context); });
  wire(page.pls_addfolder_btn, [&] { AddPlaylistFolder(page, context); });
  wire(page.pls_delete_btn, [&] { DeletePlaylistFiles(page, context); });
  wire(page.pls_reset_btn, [&] { ResetPlaylist(page); });
  wire(page.pls_output_btn, [&] { ChoosePlaylistOutput(page, context); });
  wire(page.pls_go_btn, [&] { WritePlaylist(page, context); });
  page.pls_lst.menu = [&] { return FileMenu(context, page.pls_lst); };
  const auto rename = Command(context, [&] { RenameSelected(context, page.pls_lst); });
  page.pls_lst.keyPressed = [&page, rename](ListKey key) {
    if (key == ListKey::Rename) return rename();
    if (key == ListKey::Delete) return page.pls_delete_btn.Click();
    MoveSelected(page.pls_lst, key == ListKey::MoveUp ? -1 : 1);
  };
  page.pls_lst.dragged = Command(context, [&](int from, int to) { page.pls_lst.MoveItem(from, to); });
  UpdatePlaylistGo(page, context);
}

}  // namespace tagrix
