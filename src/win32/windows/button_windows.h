// Windows of buttons, check boxes and option buttons.
#ifndef TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H
#define TAGRIX_WIN32_WINDOWS_BUTTON_WINDOWS_H

#include "forms/buttons.h"
#include "win32/windows/binding.h"
#include "win32/windows/image.h"

namespace tagrix {

class PushButton : public Binding {
 public:
  PushButton(const Site& site, Button& button, bool isDefault);
  void Update(Changes changes) override;
  void Command(int code) override;
  bool TakeKey(WPARAM key) override;

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

class TickBox : public Binding {
 public:
  TickBox(const Site& site, CheckBox& box);
  void Update(Changes changes) override;
  void Command(int code) override;

 private:
  CheckBox& box_;
};

class RadioButton : public Binding {
 public:
  RadioButton(const Site& site, OptionButton& option);
  void Update(Changes changes) override;
  void Command(int code) override;

 private:
  OptionButton& option_;
};

}  // namespace tagrix

#endif
