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
#include "storage/m3u.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

// Empty when the name has no character that a file name may hold.
std::wstring FileName(const PlaylistPage& page) {
  const std::wstring name = CleanAndTrimFileName(page.pls_name_txt.Text());
  return name.empty() ? name : SafeFileName(name + L".m3u");
}

// The playlist's lines; fewer than there are entries when the user cancels.
std::wstring PlaylistLines(const PlaylistPage& page, Progress& progress) {
  std::wstring lines;
  for (int i = 0; i < page.pls_lst.Count() && !progress.Cancelled(); ++i) {
    lines += PlaylistLine(page.pls_lst.ItemText(i), page.pls_output_txt.Text());
    progress.Pass(page.pls_lst.ItemText(i));
  }
  return lines;
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
  const std::wstring name = FileName(page), target = WithBackslash(folder) + name;
  if (name.empty()) {
    context.prompts.Message(context.Text(message::kNoPlaylistName));
    return;
  }
  const bool replaces = FileExists(context.files, target);
  if (replaces && !context.prompts.Question(context.Text(message::kOverwritePlaylist))) return;

  bool cancelled = false;
  {
    LongWork work(context, {&page.pls_go_btn, &page.pls_add_btn, &page.pls_addfolder_btn, &page.pls_delete_btn,
                            &page.pls_reset_btn});
    const std::wstring lines = PlaylistLines(page, work);
    cancelled = work.Cancelled();
    if (!cancelled) {
      WritePlaylistFile(context.files, context.codePage, target, lines);
    } else if (replaces) {
      context.files.Delete(target);
    }
  }
  if (cancelled) {
    ShowCancelMessage(context);
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
  page.pls_lst.itemTooltips = true;
  page.pls_lst.keyPressed = [&](ListKey key) {
    if (key == ListKey::Delete) page.pls_delete_btn.Click();
  };
  UpdatePlaylistGo(page, context);
}

}  // namespace tagrix
