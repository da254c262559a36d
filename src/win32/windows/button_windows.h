// Windows of buttons, check boxes and option buttons. The form draws their faces.
#ifndef TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H
#define TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H

#include "forms/buttons.h"
#include "win32/windows/binding.h"

namespace tagrix {

class ButtonWindow : public Binding {
 public:
  ButtonWindow(const Site& site, const Control& control, DWORD style);
  void Update(Changes changes) override;

 private:
  virtual const std::wstring& Caption() const { return control_.Text(); }
  virtual bool Checked() const { return false; }

  const Control& control_;
};

class PushButton : public ButtonWindow {
 public:
  PushButton(const Site& site, Button& button, bool isDefault);
  void Command(int code) override;
  bool TakeKey(WPARAM key) override;

 private:
  const std::wstring& Caption() const override;

  Button& button_;
};

class TickBox : public ButtonWindow {
 public:
  TickBox(const Site& site, CheckBox& box);
  void Command(int code) override;

 private:
  bool Checked() const override { return box_.Checked(); }

  CheckBox& box_;
};

class RadioButton : public ButtonWindow {
 public:
  RadioButton(const Site& site, OptionButton& option);
  void Command(int code) override;

 private:
  bool Checked() const override { return option_.Checked(); }

  OptionButton& option_;
};

}  // namespace tagrix

#endif
