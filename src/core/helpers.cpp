#include "core/helpers.h"

#include <algorithm>

#include "core/failure.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/temporary_file.h"
#include "core/text.h"

namespace tagrix {

void SetStatus(Context& context, std::wstring text) { context.status_lbl.SetText(std::move(text)); }

std::wstring DoubleAmpersands(std::wstring_view text) { return Replace(text, L"&", L"&&"); }

void SetCaptions(Context& context, std::initializer_list<std::pair<Control&, int>> captions) {
  for (const auto& [control, message] : captions) control.SetText(context.Text(message));
}

void ShowCancelMessage(Context& context) { context.prompts.Message(context.Text(message::kCancelled)); }

void ShowProgress(Context& context, int percent) {
  context.progress_box.SetPercent(percent);
  context.events.DoEvents();
}

int Percentage(int done, int total) {
  return total == 0 ? 0 : static_cast<int>(static_cast<std::int64_t>(done) * 100 / total);
}

bool RenameFile(Context& context, const std::wstring& oldPath, const std::wstring& newPath) {
  try {
    context.files.Rename(oldPath, newPath);
    return true;
  } catch (const Failure&) {
    ShowRenameFailure(context, newPath);
    return false;
  }
}

void ShowRenameFailure(Context& context, const std::wstring& newPath) {
  context.prompts.Message(Replace(context.Text(message::kRenameFailed), L"%%FIC%%", newPath));
}

namespace {

template <typename List>
bool Contains(const List& list, const std::wstring& text) {
  for (int i = 0; i < list.Count(); ++i) {
    if (EqualIgnoringCase(list.ItemText(i), text)) return true;
  }
  return false;
}

constexpr std::wstring_view kForbidden = L"/\\:?*\"<>|";

}  // namespace

bool ListContains(const ListBox& list, std::wstring_view text) { return Contains(list, Trim(text)); }
bool ListContains(const ComboBox& combo, std::wstring_view text) { return Contains(combo, Trim(text)); }

bool ListHasPrefix(const ListBox& list, std::wstring_view text) {
  const std::wstring prefix = Trim(text);
  for (int i = 0; i < list.Count(); ++i) {
    if (StartsWithIgnoringCase(list.ItemText(i), prefix)) return true;
  }
  return false;
}

bool SelectedInList(Context& context, const ListBox& list, std::wstring_view text) {
  bool selected = false;
  for (int i = 0; i < list.Count() && !selected; ++i) {
    selected = list.Selected(i) && EqualIgnoringCase(list.ItemText(i), text);
  }
  context.events.DoEvents();
  return selected;
}

void SortList(ListBox& list) {
  std::vector<std::wstring> texts = list.Texts();
  std::sort(texts.begin(), texts.end());
  for (int i = 0; i < list.Count(); ++i) list.SetItemText(i, texts[static_cast<std::size_t>(i)]);
}

std::wstring CleanFileName(std::wstring_view text) {
  std::wstring result(text);
  std::erase_if(result, [](wchar_t c) { return kForbidden.find(c) != kForbidden.npos; });
  return result;
}

std::wstring CleanAndTrimFileName(std::wstring_view text) { return Trim(CleanFileName(text)); }

bool IsYear(std::wstring_view text) {
  return text.size() == 4 && text[0] != L'0' &&
         std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::wstring CurrentYear(Context& context) { return std::to_wstring(context.clock.CurrentYear()); }

std::wstring FillMessage(std::wstring text, const std::vector<std::wstring>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    text = Replace(text, L"%%" + std::to_wstring(i + 1) + L"%%", values[i]);
  }
  return text;
}

bool FileExists(Context& context, const std::wstring& path) {
  const auto found = context.files.Find(path);
  return found && !found->folder;
}

bool FolderExists(Context& context, const std::wstring& path) {
  const auto found = context.files.Find(path);
  return found && found->folder;
}

std::vector<std::wstring> FilesOfFormat(Files& files, const std::wstring& folder, const std::wstring& format) {
  std::vector<std::wstring> names;
  files.List(folder, L"*." + format, [&](const FileInfo& entry) {
    if (!entry.folder && HasFormat(entry.name, format)) names.push_back(entry.name);
    return true;
  });
  return names;
}

std::string ReadWholeFile(Files& files, const std::wstring& path) {
  const auto file = files.OpenForReading(path);
  std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
  bytes.resize(file->Read(0, bytes.data(), bytes.size()));
  return bytes;
}

std::wstring FreePathBeside(Files& files, const std::wstring& path) {
  std::wstring beside = path + L".new";
  for (int n = 2; files.Find(beside); ++n) beside = path + L".new" + std::to_wstring(n);
  return beside;
}

void WriteWholeFile(Files& files, const std::wstring& path, std::string_view bytes) {
  TemporaryFile file(files, FreePathBeside(files, path));
  file.Append(bytes);
  file.Finish();
  file.PutAt(path);
}

std::vector<std::wstring> TextLines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of(L"\r\n", start), text.size());
    lines.emplace_back(text.substr(start, end - start));
    start = end + (text.substr(end, 2) == L"\r\n" ? 2 : 1);
  }
  return lines;
}

}  // namespace tagrix
