// Controls that show or take one text: labels, text boxes, frames, progress boxes.
#ifndef TAGRIX_FORMS_TEXT_CONTROLS_H
#define TAGRIX_FORMS_TEXT_CONTROLS_H

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "forms/control.h"

namespace tagrix {

enum class LabelStyle {
  Caption,  // "&" marks the access key of the control that follows
  Literal,  // shows its text as it stands
  Heading,  // like Caption, larger
  Path,     // like Caption ("&&" shows "&"), one line, shortened in the middle when it doesn't fit
};

class Label : public Control {
 public:
  explicit Label(std::string name, LabelStyle style = LabelStyle::Caption) : Control(std::move(name)), style_(style) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  LabelStyle Style() const { return style_; }

 private:
  LabelStyle style_;
};

class TextBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly) { Set(readOnly_, readOnly, Change::Look); }
  // The user types.
  void Type(std::wstring text) {
    if (!Enabled() || readOnly_) return;
    SetText(std::move(text));
    if (edited) edited();
  }

  std::function<void()> edited;  // after the text has changed by the user's hand

 private:
  bool readOnly_ = false;
};

// Groups controls. With a text it is drawn with a border and the text as its title; without, it is not drawn.
class Frame : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

class ProgressBox : public Control {
 public:
  // `figure`: the percentage is written into it.
  explicit ProgressBox(std::string name, bool figure = true) : Control(std::move(name)), figure_(figure) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
  int Percent() const { return percent_; }  // 0 to 100
  void SetPercent(int percent) { Set(percent_, std::clamp(percent, 0, 100), Change::Selection); }
  bool HasFigure() const { return figure_; }

 private:
  int percent_ = 0;
  bool figure_;
};

}  // namespace tagrix

#endif
