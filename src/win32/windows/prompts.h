// Message boxes, modal dialogs and the system's dialog for opening files.
#ifndef TAGRIX_WIN32_WINDOWS_PROMPTS_H
#define TAGRIX_WIN32_WINDOWS_PROMPTS_H

#include <windows.h>

#include <functional>
#include <vector>

#include "platform/prompts.h"

namespace tagrix {

class FormWindow;

class WinPrompts : public Prompts {
 public:
  void Message(const std::wstring& text) override;
  bool Question(const std::wstring& text) override;
  // The first form shown is the main window; the others belong to the one shown before. Returns when the form, or one
  // that it belongs to, closes.
  void ShowModal(Form& dialog) override;
  OpenFilesAnswer OpenFiles(const OpenFilesRequest& request) override;
  std::wstring ChooseNetworkFolder() override;

 private:
  HWND Owner() const;
  bool AnyClosing() const;
  void Guarded(const std::function<void()>& event);

  std::vector<FormWindow*> open_;  // the innermost last
};

}  // namespace tagrix

#endif
