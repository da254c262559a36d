// The window of a picture that the program draws itself.
#ifndef TAGRIX_WIN32_WINDOWS_PICTURE_WINDOW_H
#define TAGRIX_WIN32_WINDOWS_PICTURE_WINDOW_H

#include "forms/picture.h"
#include "win32/windows/binding.h"

namespace tagrix {

class PictureWindow : public Binding {
 public:
  PictureWindow(const Site& site, Picture& picture);
  void Update(Changes changes) override;
  void SetFonts(const Fonts& fonts) override;
  void Draw(const DRAWITEMSTRUCT& item) override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Picture& picture_;
  int dpi_ = 96;
};

}  // namespace tagrix

#endif
