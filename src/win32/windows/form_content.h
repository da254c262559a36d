// The windows of a form's controls: made when they first appear, kept up to date with their models and in their places.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H
#define TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "win32/windows/binding.h"
#include "win32/windows/fonts.h"

namespace tagrix {

class FormContent : public ControlObserver {
 public:
  // Sent to the form's window when models have changed: time to call `Flush`. It may also come as a timer of this id.
  static constexpr UINT kFlush = WM_APP;

  // `window` outlives it.
  FormContent(HWND window, Form& form, int dpi);
  ~FormContent() override;

  void SetFonts(int dpi);
  int Dpi() const { return fonts_->Dpi(); }
  int Pixels(int units) const { return fonts_->Pixels(units); }
  Size LeastSize() const { return MinimumSize(form_.layout, fonts_->Dpi(), *fonts_); }

  // Models are followed together, at most some sixty times a second, however often they change.
  void Changed(Control& control, Change change) override;
  // Shows what has changed; true when the layout has to be redone.
  bool Flush();
  // Puts every window in its place.
  void Place();

  // Gives the keyboard to the control, or to the first that takes it.
  void SetFocusTo(const Control* control);
  // Likewise, for a window that can't have it any more.
  void ReplaceFocus(HWND lost);
  // Gives it back to the control that lost it by being disabled or hidden, unless the user has gone on meanwhile.
  void GiveFocusBack();
  // Clicks the button if the user could.
  void Press(Button& button);
  // The binding of a control's window; null for other windows (the parts of combo boxes).
  Binding* BindingOf(HWND window) const;
  // The tooltip for the pointer over a control's window.
  std::wstring TooltipOf(HWND window) const;
  void HideTooltip() const;
  void ForwardToAll(UINT message) const;

 private:
  struct Slot {
    Control* control;
    bool wraps;
    Changes changes;
    std::unique_ptr<Binding> binding;
    Rect rect;
    bool visible = false, enabled = true;
    bool hasTooltip = false;
  };

  void Collect(const Node& node);
  const Slot* SlotOf(HWND window) const;
  Slot& SlotOf(const Control& control) { return slots_[index_.at(&control)]; }
  bool MakeWindow(Slot& slot, const Placement& place);
  void OfferTooltip(Slot& slot);
  HDWP Move(HDWP moves, Slot& slot, const Placement& place, const HWND* after);
  HWND Enable(const std::vector<Placement>& places);

  HWND window_;
  Form& form_;
  std::unique_ptr<Fonts> fonts_;
  std::vector<Slot> slots_;  // in the layout's order
  std::unordered_map<const Control*, std::size_t> index_;
  HWND tooltips_ = nullptr;
  bool placed_ = false;  // once
  bool flushPending_ = false;
  ULONGLONG flushed_ = 0;     // ticks
  HWND lostFocus_ = nullptr;  // had the keyboard when it was disabled or hidden
  HWND standIn_ = nullptr;    // has it meanwhile
};

}  // namespace tagrix

#endif
