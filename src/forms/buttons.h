// Buttons, check boxes and option buttons.
#ifndef TAGRIX_FORMS_BUTTONS_H
#define TAGRIX_FORMS_BUTTONS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace tagrix {

class Button : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  // The user presses it; a disabled button does nothing.
  void Click() {
    if (Enabled() && clicked) clicked();
  }
  // Path of an icon or picture shown on it, at so many device-independent units a side; a missing file shows none.
  void SetImage(std::wstring path, int size = 32) {
    imageSize_ = size;
    Set(image_, std::move(path), Change::Look);
  }
  const std::wstring& Image() const { return image_; }
  int ImageSize() const { return imageSize_; }

  // Marked as the one of several that is in force (the button of the page in view) or that comes next.
  bool Marked() const { return marked_; }
  void SetMarked(bool marked) { Set(marked_, marked, Change::Selection); }

  std::function<void()> clicked;

 private:
  std::wstring image_;
  bool marked_ = false;
  int imageSize_ = 32;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Set(checked_, checked, Change::Selection); }
  // Ticked and usable: a disabled option counts as unticked.
  bool On() const { return checked_ && Enabled(); }
  // The user clicks it.
  void Click() {
    if (!Enabled()) return;
    SetChecked(!checked_);
    if (clicked) clicked();
  }

  std::function<void()> clicked;  // after the state has changed

 private:
  bool checked_ = false;
};

class OptionButton;

// The option buttons of which exactly one is chosen; outlives them.
using OptionGroup = std::vector<OptionButton*>;

class OptionButton : public Control {
 public:
  OptionButton(std::string name, OptionGroup& group, std::wstring text = {})
      : Control(std::move(name), std::move(text)), group_(group) {
    group_.push_back(this);
  }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool Checked() const { return checked_; }
  // Chooses this one instead of the others of its group.
  void Choose() {
    for (OptionButton* other : group_) other->Set(other->checked_, other == this, Change::Selection);
  }
  bool FirstOfGroup() const { return group_.front() == this; }
  // The user clicks it.
  void Click() {
    if (!Enabled()) return;
    Choose();
    if (clicked) clicked();
  }

  std::function<void()> clicked;  // after the state has changed

 private:
  OptionGroup& group_;
  bool checked_ = false;
};

}  // namespace tagrix

#endif
