// Windows of buttons, check boxes and option buttons.
#ifndef TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H
#define TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H

#include "forms/buttons.h"
#include "win32/windows/binding.h"
#include "win32/windows/image.h"

namespace tagrix {

// A button that the system draws, unless it knows no dark look for it.
class SystemButton : public Binding {
 public:
  SystemButton(const Site& site, const Control& control, const WindowKind& kind);
  void SetFonts(const Fonts& fonts) override;
  std::optional<LRESULT> Notify(NMHDR& note) override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;
  // Whether `Draw` is to be called instead of the system's drawing.
  virtual bool DrawsItself() const { return Colours().dark; }
  virtual void DrawFace(const NMCUSTOMDRAW& draw) = 0;
  int Pixels(int units) const { return MulDiv(units, dpi_, 96); }
  // The caption with its access key underlined if the user wants that, and the focus around it.
  void DrawCaption(const NMCUSTOMDRAW& draw, RECT area, UINT format, COLORREF colour) const;

 private:
  int dpi_ = 96;
};

class PushButton : public SystemButton {
 public:
  PushButton(const Site& site, Button& button, bool isDefault);
  void Update(Changes changes) override;
  void Command(int code) override;
  bool TakeKey(WPARAM key) override;

 protected:
  bool DrawsItself() const override;
  void DrawFace(const NMCUSTOMDRAW& draw) override;

 private:
  Button& button_;
};

// A flat white button that shows a picture, above its text if it has one.
class ImageButton : public Binding {
 public:
  ImageButton(const Site& site, Button& button);
  void Update(Changes changes) override;
  void SetFonts(const Fonts& fonts) override;
  void Command(int code) override;
  void Draw(const DRAWITEMSTRUCT& item) override;
  bool TakeKey(WPARAM key) override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void DrawFace(HDC dc, RECT area, UINT state) const;
  void DrawContent(HDC dc, RECT area, UINT state) const;

  Button& button_;
  Image image_;
  int dpi_ = 96;
  bool loaded_ = false;  // the image, at the present DPI
  bool hot_ = false;     // the pointer is over it
};

// What check boxes and option buttons share.
class Ticked : public SystemButton {
 public:
  using SystemButton::SystemButton;

 protected:
  void ShowTick(bool checked);
  void DrawFace(const NMCUSTOMDRAW& draw) override;
  virtual void DrawMark(HDC dc, RECT box, COLORREF colour) const = 0;
  virtual bool Round() const = 0;
};

class TickBox : public Ticked {
 public:
  TickBox(const Site& site, CheckBox& box);
  void Update(Changes changes) override;
  void Command(int code) override;

 protected:
  void DrawMark(HDC dc, RECT box, COLORREF colour) const override;
  bool Round() const override { return false; }

 private:
  CheckBox& box_;
};

class RadioButton : public Ticked {
 public:
  RadioButton(const Site& site, OptionButton& option);
  void Update(Changes changes) override;
  void Command(int code) override;

 protected:
  void DrawMark(HDC dc, RECT box, COLORREF colour) const override;
  bool Round() const override { return true; }

 private:
  OptionButton& option_;
};

}  // namespace tagrix

#endif
