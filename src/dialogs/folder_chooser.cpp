#include "dialogs/folder_chooser.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "forms/list_lookups.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

void transme(Choixrecoldir& dialog, Context& context) {
  dialog.form.caption = context.Text(message::kChooserCaption);
  SetCaptions(context, {{dialog.drive_frm, message::kDrive},
                        {dialog.folder_frm, message::kFolder},
                        {dialog.file_frm, message::kPreview},
                        {dialog.format_frm, message::kFormat},
                        {dialog.recurse_frm, message::kSubfolders},
                        {dialog.recurse_chk, message::kRecurse},
                        {dialog.path_lbl, message::kPathColon},
                        {dialog.music_btn, message::kMusicFolder},
                        {dialog.desktop_btn, message::kDesktopFolder},
                        {dialog.network_btn, message::kNetworkPlaces},
                        {dialog.ok_btn, message::kOk},
                        {dialog.cancel_btn, message::kCancel}});
}

// A folder that can't be read, such as an empty disc drive, shows nothing below it.
std::vector<std::wstring> FoldersIn(Files& files, const std::wstring& path) {
  std::vector<std::wstring> names;
  try {
    files.List(path, L"*", [&](const FileInfo& entry) {
      if (entry.folder) names.push_back(entry.name);
      return true;
    });
  } catch (const Failure&) {
    names.clear();
  }
  std::sort(names.begin(), names.end(), LessIgnoringCase());
  return names;
}

// Opens the tree on a folder, if there is such a folder on one of the drives or on another computer.
bool OpenOn(Choixrecoldir& dialog, Context& context, std::wstring folder) {
  folder = WithoutBackslash(Trim(folder));
  const std::wstring drive = folder.substr(0, 2);
  const bool known = drive == L"\\\\" ? IsRoot(folder.substr(0, folder.find(L'\\', folder.find(L'\\', 2) + 1)))
                                      : ListContains(dialog.Drive1, drive);
  if (!known || !FolderExists(context.files, WithBackslash(folder))) return false;
  dialog.Drive1.SetText(drive);
  dialog.Dir1.SetPath(folder.size() == 2 ? WithBackslash(folder) : folder);
  return true;
}

void OpenStartFolder(Choixrecoldir& dialog, Context& context) {
  if (OpenOn(dialog, context, context.settings.Get(setting::kLastDir))) return;
  if (OpenOn(dialog, context, context.files.MusicFolder())) return;
  if (OpenOn(dialog, context, context.programFolder) || dialog.Drive1.Count() == 0) return;
  dialog.Drive1.Select(0);
  dialog.Dir1.SetPath(WithBackslash(dialog.Drive1.Text()));
}

bool CollectsFiles(ChooserMode mode) {
  return mode == ChooserMode::BulkFiles || mode == ChooserMode::PlaylistFiles || mode == ChooserMode::BurnFiles;
}

bool PicksFolder(ChooserMode mode) {
  return mode >= ChooserMode::Album && mode <= ChooserMode::BurnFiles && !CollectsFiles(mode);
}

void RemoveKnown(std::vector<std::wstring>& paths, std::initializer_list<const ListBox*> lists) {
  std::unordered_set<std::wstring_view, HashIgnoringCase, SameIgnoringCase> known;
  for (const ListBox* list : lists) {
    known.reserve(known.size() + static_cast<std::size_t>(list->Count()));
    for (int i = 0; i < list->Count(); ++i) known.insert(list->ItemText(i));
  }
  if (!known.empty()) {
    std::erase_if(paths, [&](const std::wstring& path) { return known.contains(path); });
  }
}

// What the mode takes of the files found; tells which folders could not be read.
std::vector<std::wstring> Collected(Context& context, AudioWalk walk, ChooserMode mode,
                                    std::initializer_list<const ListBox*> known) {
  std::vector<std::wstring>& paths = walk.found;
  if (mode == ChooserMode::PlaylistFiles) {
    // A playlist may name a file twice, but takes no name that is nothing but an ending.
    std::erase_if(paths, [](const std::wstring& path) { return FileNamePart(path).size() < 4; });
  } else {
    RemoveKnown(paths, known);
  }
  ShowFoldersNotRead(context, walk.notRead);
  return std::move(walk.found);
}

// Goes to the folder that was typed or pasted. False, and said, when there is none.
bool TakeTypedPath(Choixrecoldir& dialog, Context& context) {
  const std::wstring typed = Trim(Replace(dialog.path_txt.Text(), L"\"", L""));  // a path copied as such has quotes
  if (typed.empty() || typed == dialog.Dir1.Path() || OpenOn(dialog, context, typed)) return true;
  context.prompts.Message(FillMessage(context.Text(message::kNoSuchFolder), {typed}));
  return false;
}

void Accept(Choixrecoldir& dialog, Context& context) {
  if (!TakeTypedPath(dialog, context)) return;
  context.settings.Put(setting::kLastDir, dialog.Dir1.Path());
  if (CollectsFiles(dialog.mode)) {
    LongWork work(context, {&dialog.choice_frm, &dialog.ok_btn});
    AudioWalk walk = AudioFilesBelow(context.files, dialog.Dir1.Path(), dialog.recurse_chk.Checked(), work);
    if (!work.Cancelled()) dialog.walk = std::move(walk);
  } else if (PicksFolder(dialog.mode)) {
    dialog.folder = {WithoutBackslash(Trim(dialog.Dir1.Path())), dialog.format_cmb.Text()};
  }
  dialog.form.Close();
}

void ShowChooser(Choixrecoldir& dialog, Context& context, ChooserMode mode) {
  LoadFolderChooser(dialog, context);
  SetMode(dialog, mode);
  ShowModal(context, dialog.form);
}

Node FolderColumn(Choixrecoldir& dialog) {
  return Column({Framed(dialog.drive_frm, Column({dialog.Drive1})),
                 Stretch(1, Framed(dialog.folder_frm, Column({Stretch(1, MinSize(260, 260, dialog.Dir1))})))});
}

}  // namespace

void LoadFolderChooser(Choixrecoldir& dialog, Context& context) {
  transme(dialog, context);
  for (const std::wstring_view format : kAudioFormats) dialog.format_cmb.Add(std::wstring(format));
  dialog.format_cmb.Select(0);
  for (std::wstring& drive : context.files.Drives()) dialog.Drive1.Add(std::move(drive));

  dialog.Dir1.children = [&context](const std::wstring& path) { return FoldersIn(context.files, path); };
  dialog.Dir1.pathChanged = Notice(context, [&] {
    dialog.path_txt.SetText(dialog.Dir1.Path());
    RefreshList(dialog, context);
  });
  dialog.music_btn.clicked = Command(context, [&] { OpenOn(dialog, context, context.files.MusicFolder()); });
  dialog.desktop_btn.clicked = Command(context, [&] { OpenOn(dialog, context, context.files.DesktopFolder()); });
  dialog.network_btn.clicked = Command(context, [&] {
    const std::wstring folder = context.prompts.ChooseNetworkFolder();
    if (!folder.empty() && !OpenOn(dialog, context, folder)) dialog.path_txt.SetText(folder);
  });
  dialog.Drive1.chosen = Notice(context, [&] { dialog.Dir1.SetPath(WithBackslash(dialog.Drive1.Text())); });
  dialog.format_cmb.chosen = Notice(context, [&] { RefreshList(dialog, context); });
  dialog.ok_btn.clicked = Command(context, [&] { Accept(dialog, context); });
  dialog.cancel_btn.clicked = [&] {
    CancelWork(context);  // a walk that is under way
    dialog.form.Close();
  };
  dialog.form.defaultButton = &dialog.ok_btn;
  dialog.form.cancelButton = &dialog.cancel_btn;
  dialog.form.firstFocus = &dialog.Dir1;
  OpenStartFolder(dialog, context);
}

void SetMode(Choixrecoldir& dialog, ChooserMode mode) {
  dialog.mode = mode;
  dialog.recurse_frm.SetVisible(CollectsFiles(mode));
  Node format = Framed(dialog.format_frm, Column({dialog.format_cmb}));
  Node files = Stretch(1, Framed(dialog.file_frm, Column({Stretch(1, MinSize(220, 160, dialog.file_lst))})));
  // The format is part of an album's choice and stands first there; elsewhere it only filters the preview.
  std::vector<Node> right =
      mode == ChooserMode::Album ? std::vector<Node>{format, files} : std::vector<Node>{files, format};
  Node path =
      Row({dialog.path_lbl, Stretch(1, dialog.path_txt), dialog.music_btn, dialog.desktop_btn, dialog.network_btn});
  Node folders = Row({Stretch(3, FolderColumn(dialog)), Stretch(2, Column(std::move(right)))});
  Node choice = Framed(dialog.choice_frm, Column({std::move(path), Stretch(1, std::move(folders))}));
  Node buttons =
      CollectsFiles(mode)
          ? Row({Framed(dialog.recurse_frm, Row({dialog.recurse_chk})), Spacer(), dialog.ok_btn, dialog.cancel_btn})
          : Row({Spacer(), dialog.ok_btn, dialog.cancel_btn});
  dialog.form.layout = Margin(kWideGap, Column({Stretch(1, std::move(choice)), std::move(buttons)}));
  dialog.form.startSize = {620, 480};
}

void RefreshList(Choixrecoldir& dialog, Context& context) {
  dialog.file_lst.Clear();
  std::wstring folder = dialog.Dir1.Path();
  if (folder.size() > 1) folder = WithoutBackslash(std::move(folder));
  try {
    dialog.file_lst.Append(FilesOfFormat(context.files, WithBackslash(folder), dialog.format_cmb.Text()));
  } catch (const Failure&) {
    // A folder that can't be read has nothing to preview; accepting it says why.
  }
}

std::optional<ChosenFolder> ChooseFolder(Context& context, ChooserMode mode) {
  Choixrecoldir dialog;
  ShowChooser(dialog, context, mode);
  return std::move(dialog.folder);
}

std::vector<std::wstring> ChooseAudioFiles(Context& context, ChooserMode mode,
                                           std::initializer_list<const ListBox*> known) {
  Choixrecoldir dialog;
  ShowChooser(dialog, context, mode);
  return Collected(context, std::move(dialog.walk), mode, known);
}

std::vector<std::wstring> AudioFilesAmong(Context& context, const std::vector<std::wstring>& dropped, ChooserMode mode,
                                          std::initializer_list<const ListBox*> known) {
  AudioWalk all;
  {
    LongWork work(context);
    for (const std::wstring& path : dropped) {
      if (FolderExists(context.files, path)) {
        AudioWalk walk = AudioFilesBelow(context.files, path, true, work);
        std::move(walk.found.begin(), walk.found.end(), std::back_inserter(all.found));
        std::move(walk.notRead.begin(), walk.notRead.end(), std::back_inserter(all.notRead));
      } else if (IsAudioName(path)) {
        all.found.push_back(path);
      }
    }
    if (work.Cancelled()) return {};
  }
  return Collected(context, std::move(all), mode, known);
}

}  // namespace tagrix
