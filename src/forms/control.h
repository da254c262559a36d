// What every control model shares: a name, a text, whether it is enabled and shown, and one observer.
#ifndef TAGRIX_FORMS_CONTROL_H
#define TAGRIX_FORMS_CONTROL_H

#include <string>
#include <utility>

namespace tagrix {

class Control;
class Button;
class CheckBox;
class OptionButton;
class Label;
class TextBox;
class ListBox;
class ComboBox;
class Frame;
class ProgressBox;
class TreeBox;
class Picture;

// What of a control has changed: its text, whether it can be used, whether it is shown, its entries, its selection or
// state, or how it is drawn (picture, tooltip, columns). Focus: it asks for the keyboard.
enum class Change { Text, Enabled, Visible, Items, Selection, Look, Focus };

// The one listener of a control; the renderer binds one for as long as the control has a window.
class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  virtual void Changed(Control& control, Change change) = 0;
};

// Tells the kinds apart; the renderer makes the fitting window for each.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Button&) = 0;
  virtual void Visit(CheckBox&) = 0;
  virtual void Visit(OptionButton&) = 0;
  virtual void Visit(Label&) = 0;
  virtual void Visit(TextBox&) = 0;
  virtual void Visit(ListBox&) = 0;
  virtual void Visit(ComboBox&) = 0;
  virtual void Visit(Frame&) = 0;
  virtual void Visit(ProgressBox&) = 0;
  virtual void Visit(TreeBox&) = 0;
  virtual void Visit(Picture&) = 0;
};

class Control {
 public:
  explicit Control(std::string name, std::wstring text = {}) : name_(std::move(name)), text_(std::move(text)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual void Accept(ControlVisitor& visitor) = 0;

  // The identifier ("go_btn"); the renderer hangs it on the window, so that a test can find it.
  const std::string& Name() const { return name_; }

  // The caption or content. In captions of buttons, check boxes, option buttons, frames and labels "&" marks the access
  // key and "&&" shows as "&".
  const std::wstring& Text() const { return text_; }
  virtual void SetText(std::wstring text) { Set(text_, std::move(text), Change::Text); }

  // A control works only while the frames around it are enabled, and shows only while they are visible, too.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Set(enabled_, enabled, Change::Enabled); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Set(visible_, visible, Change::Visible); }

  const std::wstring& Tooltip() const { return tooltip_; }
  void SetTooltip(std::wstring tooltip) { Set(tooltip_, std::move(tooltip), Change::Look); }

  // Asks for the keyboard; it comes as soon as the control can be used.
  void TakeFocus() { Announce(Change::Focus); }

  // What a screen reader calls it where neither its caption nor a label before it says so (forms/spoken_names.h).
  const std::wstring& SpokenName() const { return spokenName_; }
  void SetSpokenName(std::wstring name) { Set(spokenName_, std::move(name), Change::Text); }

  void Observe(ControlObserver* observer) { observer_ = observer; }

 protected:
  void Announce(Change change) {
    if (observer_ != nullptr) observer_->Changed(*this, change);
  }
  template <typename T>
  void Set(T& member, T value, Change change) {
    if (member == value) return;
    member = std::move(value);
    Announce(change);
  }

 private:
  std::string name_;
  std::wstring text_, tooltip_, spokenName_;
  bool enabled_ = true, visible_ = true;
  ControlObserver* observer_ = nullptr;
};

}  // namespace tagrix

#endif
