// A window as a value: the main window or a modal dialog.
#ifndef TAGRIX_FORMS_FORM_H
#define TAGRIX_FORMS_FORM_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/buttons.h"
#include "forms/layout.h"
#include "forms/text_controls.h"

namespace tagrix {

// Keys that are for the form as a whole: F1, F5, Ctrl+Z, Ctrl+Tab, Ctrl+Shift+Tab, Ctrl+1 to Ctrl+9.
enum class FormKey { Help, Reload, Undo, NextPage, PreviousPage, Page };

class Form {
 public:
  explicit Form(std::string formName) : name(std::move(formName)) {}

  std::string name;  // identifier ("trackedit"), hung on the window
  std::wstring caption;
  Node layout{Node::Kind::Column, {}};
  Button* defaultButton = nullptr;  // pressed by Enter
  Button* cancelButton = nullptr;   // pressed by Esc and the close box; none: they close the form
  Control* firstFocus = nullptr;    // none: the first control that takes the keyboard
  bool maximised = false;
  Size startSize;  // device-independent units; the least size when that is larger
  // Both are what the user has made of them when it closes.

  // Buttons that are done one after the other, from the first to the last: the last that can be pressed is marked as
  // the one to press.
  std::vector<std::vector<Button*>> steps;
  const ProgressBox* progress = nullptr;                  // shown on the button of the window in the taskbar, too
  std::function<bool(FormKey key, int page)> keyPressed;  // `page` from 0; false: it means nothing here

  std::function<void()> escaped;  // Esc in the main window, which it doesn't close
  std::function<void(std::vector<std::wstring> paths)>
      dropped;                     // files and folders, from another program; none: refused
  std::function<void()> shown;     // once, when the form has appeared
  std::function<bool()> canClose;  // asked when the user wants to close it; none: yes
  std::function<void()> closed;    // after it has gone

  // Closes the form as soon as the current event has been handled, without asking.
  void Close() { closing_ = true; }
  bool Closing() const { return closing_; }
  // The user wants to close it (close box, Alt+F4, Esc).
  void RequestClose() {
    if (cancelButton != nullptr) {
      cancelButton->Click();
    } else if (!canClose || canClose()) {
      Close();
    }
  }

 private:
  bool closing_ = false;
};

}  // namespace tagrix

#endif
