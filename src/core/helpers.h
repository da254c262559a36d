// The general helpers that every page uses: status line, messages, renaming, list look-ups, file names, small files.
#ifndef TAGRIX_CORE_HELPERS_H
#define TAGRIX_CORE_HELPERS_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/context.h"
#include "forms/lists.h"

namespace tagrix {

// Shows a text in the status line; an empty text clears it. In a path every "&" has to be doubled (DoubleAmpersands).
void SetStatus(Context& context, std::wstring text);
std::wstring DoubleAmpersands(std::wstring_view text);

// Sets the captions of controls to language messages.
void SetCaptions(Context& context, std::initializer_list<std::pair<Control&, int>> captions);

// Says that the operation was cancelled.
void ShowCancelMessage(Context& context);

// Fills the progress box and lets pending events run. 0 to 100.
void ShowProgress(Context& context, int percent);
// The share of `done` in `total`, in whole per cent; 0 when there is nothing to do.
int Percentage(int done, int total);

// Renames in one system call, never over another file; a failure is shown to the user. True on success.
bool RenameFile(Context& context, const std::wstring& oldPath, const std::wstring& newPath);
// Says that a file could not get this path.
void ShowRenameFailure(Context& context, const std::wstring& newPath);

// Whether some entry equals the trimmed text, letter case ignored.
bool ListContains(const ListBox& list, std::wstring_view text);
bool ListContains(const ComboBox& combo, std::wstring_view text);
// Whether some entry begins with the trimmed text, letter case ignored.
bool ListHasPrefix(const ListBox& list, std::wstring_view text);
// Whether an entry equal to the text (letter case ignored) is selected; lets pending events run.
bool SelectedInList(Context& context, const ListBox& list, std::wstring_view text);
// Sorts the texts by character code; the item values stay where they are.
void SortList(ListBox& list);

// Deletes the nine characters that no file name may hold.
std::wstring CleanFileName(std::wstring_view text);
// The same, then trims blanks at both ends.
std::wstring CleanAndTrimFileName(std::wstring_view text);

// Whether the text is a year: exactly four digits, the first not 0.
bool IsYear(std::wstring_view text);
std::wstring CurrentYear(Context& context);

// "%%1%%", "%%2%%", ... in a message replaced by the values, in this order.
std::wstring FillMessage(std::wstring text, const std::vector<std::wstring>& values);

// One look-up each: whether the path names a file, or a folder.
bool FileExists(Context& context, const std::wstring& path);
bool FolderExists(Context& context, const std::wstring& path);

// The names of a folder's files of one format ("MP3"), in the system's order. Throws Failure.
std::vector<std::wstring> FilesOfFormat(Files& files, const std::wstring& folder, const std::wstring& format);

// The whole content of a small file. Throws Failure.
std::string ReadWholeFile(Files& files, const std::wstring& path);
// A path beside the given one that names nothing yet, for what is written before it is put in place.
std::wstring FreePathBeside(Files& files, const std::wstring& path);
// Creates or replaces a file beside its target and puts it in place in one call, so that an error leaves what was
// there. Throws Failure.
void WriteWholeFile(Files& files, const std::wstring& path, std::string_view bytes);
// The lines of a text, ended by CR LF, LF or CR; a last line without an end counts.
std::vector<std::wstring> TextLines(std::wstring_view text);

}  // namespace tagrix

#endif
