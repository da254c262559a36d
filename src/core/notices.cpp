#include "core/notices.h"

#include "base/failure.h"
#include "base/text.h"
#include "core/messages.h"

namespace tagrix {

void SetCaptions(Context& context, std::initializer_list<std::pair<Control&, int>> captions) {
  for (const auto& [control, message] : captions) control.SetText(context.Text(message));
}

void ShowCancelMessage(Context& context) { context.prompts.Message(context.Text(message::kCancelled)); }

void ShowFoldersNotRead(Context& context, const std::vector<std::wstring>& folders) {
  constexpr std::size_t kMostNamed = 10;  // a message box has an end
  if (folders.empty()) return;
  std::wstring names;
  for (std::size_t i = 0; i < folders.size() && i < kMostNamed; ++i) names += L"\r\n" + folders[i];
  if (folders.size() > kMostNamed) names += L"\r\n... (" + std::to_wstring(folders.size()) + L")";
  context.prompts.Message(FillMessage(context.Text(message::kFoldersNotRead), {names}));
}

void ShowRenameFailure(Context& context, const std::wstring& newPath) {
  context.prompts.Message(Replace(context.Text(message::kRenameFailed), L"%%FIC%%", newPath));
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

}  // namespace tagrix
