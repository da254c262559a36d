// Port to what stops and asks the user: message boxes, modal dialogs, the open-file dialog.
#ifndef TAGRIX_PLATFORM_PROMPTS_H
#define TAGRIX_PLATFORM_PROMPTS_H

#include <string>
#include <vector>

namespace tagrix {

class Form;

struct FileFilter {
  std::wstring label;     // "MP3 Files"
  std::wstring patterns;  // "*.ogg; *.mp3"
};

struct OpenFilesRequest {
  std::wstring title;
  std::wstring folder;  // where to start
  std::vector<FileFilter> filters;
};

// What the user chose: a folder (no trailing "\" but for a drive root) and names in it, in the dialog's order.
struct OpenFilesAnswer {
  std::wstring folder;
  std::vector<std::wstring> names;  // empty when the user cancelled
};

class Prompts {
 public:
  virtual ~Prompts() = default;
  // A plain message with an OK button, titled with the program's name.
  virtual void Message(const std::wstring& text) = 0;
  // A Yes/No question; true for Yes.
  virtual bool Question(const std::wstring& text) = 0;
  // Shows the dialog over the active window and returns when it has closed.
  virtual void ShowModal(Form& dialog) = 0;
  virtual OpenFilesAnswer OpenFiles(const OpenFilesRequest& request) = 0;
  // The system's dialog for a folder, opened on the network; empty when the user cancels.
  virtual std::wstring ChooseNetworkFolder() = 0;
};

}  // namespace tagrix

#endif
