// Windows of controls that take one text: text boxes and combo boxes.
#ifndef TAGRIX_WIN32_WINDOWS_TEXT_WINDOWS_H
#define TAGRIX_WIN32_WINDOWS_TEXT_WINDOWS_H

#include "forms/lists.h"
#include "forms/text_controls.h"
#include "win32/windows/binding.h"

namespace tagrix {

class EditField : public Binding {
 public:
  EditField(const Site& site, TextBox& box);
  void SetFonts(const Fonts& fonts) override;
  void Update(Changes changes) override;
  void Command(int code) override;
  std::wstring TooltipHere() override;

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

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void PaintDark() const;
  LRESULT Ask(UINT message, WPARAM wParam = 0) const { return SendMessageW(Window(), message, wParam, 0); }
  void Fill();

  ComboBox& combo_;
};

}  // namespace tagrix

#endif
