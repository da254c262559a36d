// The windows of a form's controls: made when they first appear, kept up to date with their models and in their places.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H
#define TAGRIX_WIN32_WINDOWS_FORM_CONTENT_H

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "win32/windows/binding.h"
#include "win32/windows/fonts.h"
#include "win32/windows/palette.h"

namespace tagrix {

class FormContent : public ControlObserver {
 public:
  // Sent to the form's window when models have changed: time to call `Flush`. It may also come as a timer of this id.
  static constexpr UINT kFlush = WM_APP;

  // `window` outlives it.
  FormContent(HWND window, Form& form, int dpi);
  ~FormContent() override;

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
  // Has everything painted anew, borders included.
  void Repaint() const;
  // Draws the ground and what has no window.
  void Paint(HDC dc, const RECT& area);
  // A program asks that reads the screen aloud: what has no window gets one that stands in for it.
  void Describe();
  // The brush behind a field, or behind what stands on the ground, whose colours are set; null where the system's are.
  HBRUSH ColourField(HDC dc) const;
  HBRUSH ColourOnGround(HDC dc) const;

  // Gives the keyboard to the control, or to the first that takes it.
  void SetFocusTo(const Control* control);
  // Likewise, for a window that can't have it any more.
  void ReplaceFocus(HWND lost);
  // Gives it back to the control that lost it by being disabled or hidden, unless the user has gone on meanwhile.
  void GiveFocusBack();
  // Gives it to the control that has asked for it last.
  void GiveWantedFocus();
  // Gives it to the control whose label, or to the first within the frame whose title has this access key; false when
  // there is none. The system looks after the keys of windows.
  bool FollowAccessKey(wchar_t key);
  // Clicks the button if the user could.
  void Press(Button& button);
  // The binding of a control's window; null for other windows (the parts of combo boxes).
  Binding* BindingOf(HWND window) const;
  // The window of the control of this name, null when it shows none.
  HWND Find(const std::string& name);
  // The pointer is over a window of the form, or the form itself: its tooltip is prepared, unless the pointer has only
  // lain where the form has appeared.
  void OfferTooltip(HWND under);
  // A mouse message of the form itself.
  void TellTooltips(const MSG& message) const;
  // The tooltip for the pointer over a control's window, or over what is drawn, by the id of its tool.
  std::wstring TooltipOf(UINT_PTR id) const;
  void HideTooltip() const;
  void ForwardToAll(UINT message) const;

 private:
  struct Slot {
    Control* control;
    bool wraps, drawn;
    Changes changes;
    std::unique_ptr<Binding> binding, hiddenLabel;
    Rect rect;
    bool visible = false, enabled = true;
    bool hasTooltip = false;
  };

  void Collect(const Node& node);
  const Slot* SlotOf(HWND window) const;
  Slot& SlotOf(const Control& control) { return slots_[index_.at(&control)]; }
  bool MakeWindow(Slot& slot, const Placement& place);
  void MakeHiddenLabels();
  bool PointerMoved();
  void ShowTool(Slot& slot);
  std::size_t SlotNumber(const Slot& slot) const { return static_cast<std::size_t>(&slot - slots_.data()); }
  void Invalidate(const Rect& rect) const;
  void RedrawWhereDrawn(const Slot& slot, const Placement& place) const;
  HDWP Move(HDWP moves, Slot& slot, const Placement& place, const HWND* after);
  HWND Enable(const std::vector<Placement>& places);

  HWND window_;
  Form& form_;
  std::unique_ptr<Fonts> fonts_;
  Palette palette_ = Palette::Current();
  UniqueBrush ground_{CreateSolidBrush(palette_.ground)}, field_{CreateSolidBrush(palette_.field)};
  std::vector<Slot> slots_;  // in the layout's order
  std::unordered_map<const Control*, std::size_t> index_;
  HWND tooltips_ = nullptr;
  std::optional<DWORD> firstPointer_;
  bool placed_ = false;     // once
  bool described_ = false;  // stand-ins are made
  bool flushPending_ = false;
  ULONGLONG flushed_ = 0;            // ticks
  HWND lostFocus_ = nullptr;         // had the keyboard when it was disabled or hidden
  HWND standIn_ = nullptr;           // has it meanwhile
  const Control* wanted_ = nullptr;  // has asked for it
};

}  // namespace tagrix

#endif
