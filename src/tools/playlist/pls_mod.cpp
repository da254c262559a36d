#include "tools/playlist/pls_mod.h"

#include <string>

#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/m3u.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/text.h"
#include "dialogs/add_files.h"
#include "dialogs/folder_chooser.h"

namespace tagrix {
namespace {

constexpr int kEventStep = 32;  // entries between two looks at the events: each takes only microseconds

std::wstring TargetPath(const PlaylistPage& page) {
  return WithBackslash(page.pls_output_txt.Text()) + CleanAndTrimFileName(page.pls_name_txt.Text()) + L".m3u";
}

// The playlist's lines; fewer than there are entries when the user cancels.
std::wstring PlaylistLines(const PlaylistPage& page, Context& context) {
  std::wstring lines;
  for (int i = 0; i < page.pls_lst.Count() && !context.cancelled; ++i) {
    lines += PlaylistLine(page.pls_lst.ItemText(i), page.pls_output_txt.Text());
    if (i % kEventStep != 0) continue;
    SetStatus(context, DoubleAmpersands(page.pls_lst.ItemText(i)));
    context.events.DoEvents();
  }
  return lines;
}

}  // namespace

void UpdatePlaylistGo(PlaylistPage& page, Context& context) {
  page.pls_go_btn.SetEnabled(!Trim(page.pls_name_txt.Text()).empty() && page.pls_lst.Count() > 0 &&
                             FolderExists(context, page.pls_output_txt.Text()));
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
  ChooseFolder(context, ChooserMode::PlaylistFiles, {.files = &page.pls_lst});
  UpdatePlaylistGo(page, context);
}

void DeletePlaylistFiles(PlaylistPage& page, Context& context) {
  page.pls_lst.RemoveSelected();
  UpdatePlaylistGo(page, context);
}

void ResetPlaylist(PlaylistPage& page) { page.pls_lst.Clear(); }

void ChoosePlaylistOutput(PlaylistPage& page, Context& context) {
  ChooseFolder(context, ChooserMode::PlaylistOutput, {.folder = &page.pls_output_txt});
  UpdatePlaylistGo(page, context);
}

void WritePlaylist(PlaylistPage& page, Context& context) {
  context.cancelled = false;
  const std::wstring target = TargetPath(page);
  const bool replaces = FileExists(context, target);
  if (replaces && !context.prompts.Question(context.Text(message::kOverwritePlaylist))) return;

  const RestoreOnFailure restore(
      {&page.pls_go_btn, &page.pls_add_btn, &page.pls_addfolder_btn, &page.pls_delete_btn, &page.pls_reset_btn});
  EnablePlaylistButtons(page, false);
  SetBusy(context, true);
  const std::wstring lines = PlaylistLines(page, context);
  SetStatus(context, L"");
  if (!context.cancelled) {
    WritePlaylistFile(context, target, lines);
  } else if (replaces) {
    context.files.Delete(target);
  }
  SetBusy(context, false);
  EnablePlaylistButtons(page, true);
  if (context.cancelled) {
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
