// What a form shows: windows of its controls, made when they are first needed and kept up to date with their models and
// in their places. Until then, and for what needs none, the form draws. A window costs much more than its picture.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H
#define TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "win32/windows/binding.h"
#include "win32/windows/control_drawing.h"
#include "win32/windows/control_slots.h"
#include "win32/windows/fonts.h"
#include "win32/windows/form_focus.h"
#include "win32/windows/form_tooltips.h"
#include "win32/windows/palette.h"

namespace tagrix {

class FormContent : public ControlObserver {
 public:
  // Sent to the form's window when models have changed: time to call `Flush`. It may also come as a timer of this id.
  static constexpr UINT kFlush = WM_APP;

  // `window` outlives it.
  FormContent(HWND window, Form& form, int dpi);

  void SetFonts(int dpi);
  // Takes over what the user has chosen in the system's settings.
  void SetPalette();
  const Palette& Colours() const { return palette_; }
  int Dpi() const { return fonts_->Dpi(); }
  int Pixels(int units) const { return fonts_->Pixels(units); }
  Size LeastSize() const { return MinimumSize(form_.layout, fonts_->Dpi(), *fonts_); }

  // Models are followed together, at most some sixty times a second, however often they change.
  void Changed(Control& control, Change change) override;
  // Shows what has changed; true when the layout has to be redone.
  bool Flush();
  // Puts every window in its place.
  void Place();
  // Has everything painted anew.
  void Repaint() const;
  // Draws the ground and what has no window.
  void Paint(HDC dc, const RECT& area);
  // Draws the face of a button's window, at the stage that `draw` tells; returns what the system asks for then, nothing
  // for other windows.
  std::optional<LRESULT> DrawFace(const NMCUSTOMDRAW& draw);
  // A program asks that reads the screen aloud: what has no window gets one that stands in for it.
  void Describe();
  // The brush behind a field, or behind what stands on the ground, whose colours are set; null where the system's are.
  HBRUSH ColourField(HDC dc) const;
  HBRUSH ColourOnGround(HDC dc) const;

  // The keyboard is used: all that can be seen gets its window.
  void TouchAll();
  // The pointer has come over the form itself, or has been pressed there (a mouse message): what stands there gets its
  // window, and what is done to it. True when that has taken the message.
  bool PointerCame(UINT message, WPARAM keys, POINT point);
  // A window has got or lost the keyboard.
  void FocusChanged(HWND window) const;

  FormFocus& Focus() { return focus_; }
  // Clicks the button if the user could.
  void Press(Button& button);
  // The binding of a control's window; null for other windows (the parts of combo boxes).
  Binding* BindingOf(HWND window) const;
  // The window of the control of this name, null when it shows none.
  HWND Find(const std::string& name);
  // The pointer is over a window of the form, or the form itself: its tooltip is prepared, unless the pointer has only
  // lain where the form has appeared.
  void OfferTooltip(HWND under);
  // The tooltip for the pointer over a control's window, or over what is drawn, by the id of its tool.
  std::wstring TooltipOf(UINT_PTR id) const;
  void HideTooltip() const { tooltips_.Hide(); }
  void ForwardToAll(UINT message) const;

 private:
  bool NeedsWindow(const Slot& slot) const;
  bool MakeWindow(Slot& slot, const Placement& place);
  // Where the window belongs of a control in this place.
  Rect WindowPlace(const Slot& slot, const Rect& rect) const;
  // Makes its window, unless it has one already or can't be seen; returns it.
  HWND Touch(Slot& slot);
  void MakeHiddenLabels();
  void PlaceTooltip(const Slot& slot);
  void Invalidate(const Rect& rect) const;
  static void AddChange(RECT& changed, const Slot& slot, const Placement& place);
  bool Hides(UINT what) const;
  HDWP Move(HDWP moves, Slot& slot, const Placement& place, const HWND* after);
  HWND Enable(const std::vector<Placement>& places);

  HWND window_;
  Form& form_;
  std::unique_ptr<Fonts> fonts_;
  Palette palette_ = Palette::Current();
  UniqueBrush ground_{CreateSolidBrush(palette_.ground)}, field_{CreateSolidBrush(palette_.field)};
  Images images_;
  ControlSlots slots_;
  FormFocus focus_;
  FormTooltips tooltips_;
  bool placed_ = false;     // once
  bool described_ = false;  // stand-ins are made
  bool flushPending_ = false;
  ULONGLONG flushed_ = 0;  // ticks
};

}  // namespace tagrix

#endif
