// The dialog through which every page picks a folder, or collects the audio files below one.
#ifndef TAGRIX_DIALOGS_FOLDER_CHOOSER_H
#define TAGRIX_DIALOGS_FOLDER_CHOOSER_H

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "core/context.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "storage/audio_walk.h"

namespace tagrix {

// What the dialog is for: a folder and a format (1), a folder (2, 3, 5, 7) or the audio files below one (4, 6, 8).
// With any other number it only remembers the folder.
enum class ChooserMode : std::uint8_t {
  Album = 1,
  ListerInput = 2,
  ListerOutput = 3,
  BulkFiles = 4,
  SetupFolder = 5,
  PlaylistFiles = 6,
  PlaylistOutput = 7,
  BurnFiles = 8,
};

struct ChosenFolder {
  std::wstring path;    // without a trailing "\"
  std::wstring format;  // "MP3", ...
};

struct Choixrecoldir {
  Frame drive_frm{"drive_frm"}, folder_frm{"folder_frm"}, file_frm{"file_frm"}, format_frm{"format_frm"};
  Frame recurse_frm{"recurse_frm"};
  Frame choice_frm{"choice_frm"};  // around all but the buttons
  Label path_lbl{"path_lbl"};
  TextBox path_txt{"path_txt"};  // the folder as a path, which can be typed or pasted
  Button music_btn{"music_btn"}, desktop_btn{"desktop_btn"}, network_btn{"network_btn"};
  ComboBox Drive1{"Drive1"};
  TreeBox Dir1{"Dir1"};
  ListBox file_lst{"file_lst"};  // preview of the folder's files of the chosen format
  ComboBox format_cmb{"format_cmb"};
  CheckBox recurse_chk{"recurse_chk"};
  Button ok_btn{"ok_btn"}, cancel_btn{"cancel_btn"};

  ChooserMode mode{};
  // The result; none: the user cancelled.
  std::optional<ChosenFolder> folder;
  AudioWalk walk;
  Form form{"Choixrecoldir"};
};

// Fills the dialog, opens it on the folder used last and wires it.
void LoadFolderChooser(Choixrecoldir& dialog, Context& context);
// Sets what the dialog is for, and where its controls stand.
void SetMode(Choixrecoldir& dialog, ChooserMode mode);
void RefreshList(Choixrecoldir& dialog, Context& context);

// Shows the dialog for a mode that picks a folder; nothing when the user cancels.
std::optional<ChosenFolder> ChooseFolder(Context& context, ChooserMode mode);

// Shows the dialog for a mode that collects files and returns their full paths; empty when the user cancels. Folders
// that could not be read are told. `known`: lists whose files are left out, where the mode leaves out duplicates.
std::vector<std::wstring> ChooseAudioFiles(Context& context, ChooserMode mode,
                                           std::initializer_list<const ListBox*> known);

// The same for files and folders that were not chosen here but dropped: audio files, and those below the folders.
std::vector<std::wstring> AudioFilesAmong(Context& context, const std::vector<std::wstring>& dropped, ChooserMode mode,
                                          std::initializer_list<const ListBox*> known);

}  // namespace tagrix

#endif
