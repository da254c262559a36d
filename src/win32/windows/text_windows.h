// Windows of controls that show or take one text: labels, text boxes, combo boxes, frames, progress boxes.
#ifndef TAGRIX_WIN32_WINDOWS_TEXT_WINDOWS_H
#define TAGRIX_WIN32_WINDOWS_TEXT_WINDOWS_H

#include "forms/lists.h"
#include "forms/text_controls.h"
#include "win32/windows/binding.h"

namespace tagrix {

class StaticText : public Binding {
 public:
  StaticText(const Site& site, Label& label, bool wraps);
  void Update(Changes changes) override;
  void SetFonts(const Fonts& fonts) override;

 private:
  Label& label_;
  bool wraps_;
};

class EditField : public Binding {
 public:
  EditField(const Site& site, TextBox& box);
  void Update(Changes changes) override;
  void Command(int code) override;

 private:
  void ShowContent();

  TextBox& box_;
};

class DropDown : public Binding {
 public:
  DropDown(const Site& site, ComboBox& combo);
  void Update(Changes changes) override;
  void Command(int code) override;
  bool TakeKey(WPARAM key) override;

 private:
  LRESULT Ask(UINT message, WPARAM wParam = 0) const { return SendMessageW(Window(), message, wParam, 0); }
  void Fill();

  ComboBox& combo_;
};

class GroupBox : public Binding {
 public:
  GroupBox(const Site& site, Frame& frame);
  void Update(Changes changes) override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Frame& frame_;
};

class ProgressBar : public Binding {
 public:
  ProgressBar(const Site& site, ProgressBox& progress);
  void Update(Changes changes) override;

 private:
  ProgressBox& progress_;
};

}  // namespace tagrix

#endif
