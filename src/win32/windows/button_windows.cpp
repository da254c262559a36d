#include "win32/windows/button_windows.h"

namespace tagrix {

ButtonWindow::ButtonWindow(const Site& site, const Control& control, DWORD style)
    : Binding(site, control, {WC_BUTTONW, style}), control_(control) {}

void ButtonWindow::Update(Changes changes) {
  if (changes.Has(Change::Text) || changes.Has(Change::Look)) ShowText(Caption());
  const LRESULT state = Checked() ? BST_CHECKED : BST_UNCHECKED;
  if (SendMessageW(Window(), BM_GETCHECK, 0, 0) != state) {
    SendMessageW(Window(), BM_SETCHECK, static_cast<WPARAM>(state), 0);
  }
  InvalidateRect(Window(), nullptr, FALSE);
}

PushButton::PushButton(const Site& site, Button& button, bool isDefault)
    : ButtonWindow(site, button, WS_TABSTOP | static_cast<DWORD>(isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)),
      button_(button) {}

void PushButton::Command(int code) {
  if (code == BN_CLICKED) button_.Click();
}

bool PushButton::TakeKey(WPARAM key) {
  if (key != VK_RETURN) return false;
  button_.Click();
  return true;
}

// Also what a screen reader takes for the name of one that shows a picture.
const std::wstring& PushButton::Caption() const {
  if (button_.Image().empty()) return button_.Text();
  if (!button_.SpokenName().empty()) return button_.SpokenName();
  return button_.Text().empty() ? button_.Tooltip() : button_.Text();
}

TickBox::TickBox(const Site& site, CheckBox& box) : ButtonWindow(site, box, WS_TABSTOP | BS_CHECKBOX), box_(box) {}

void TickBox::Command(int code) {
  if (code == BN_CLICKED) box_.Click();
}

RadioButton::RadioButton(const Site& site, OptionButton& option)
    : ButtonWindow(site, option, BS_AUTORADIOBUTTON | (option.FirstOfGroup() ? WS_TABSTOP | WS_GROUP : 0UL)),
      option_(option) {}

void RadioButton::Command(int code) {
  // The system also reports one that was chosen by the arrow keys, or that the keyboard has come back to.
  if (code == BN_CLICKED && !option_.Checked()) option_.Click();
}

}  // namespace tagrix
