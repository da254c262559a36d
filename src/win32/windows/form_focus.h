// Which control of a form has the keyboard: at first, when it asks, and when the one that has it can't keep it.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_FOCUS_H
#define TAGRIX_WIN32_WINDOWS_FORM_FOCUS_H

#include <functional>
#include <utility>

#include "win32/windows/control_slots.h"

namespace tagrix {

class FormFocus {
 public:
  // `window` is the form's; `touch` makes a control's window, unless it has one or can't be seen, and returns it.
  FormFocus(HWND window, ControlSlots& slots, std::function<HWND(Slot&)> touch)
      : window_(window), slots_(slots), touch_(std::move(touch)) {}

  // Gives the keyboard to the control, or to the first that takes it.
  void SetTo(const Control* control);
  // Gives it to the control whose label, or to the first within the frame whose title has this access key; false when
  // there is none. The system looks after the keys of windows.
  bool FollowAccessKey(wchar_t key);

  // The control asks for it; it gets it with `GiveWanted`.
  void Want(const Control& control) { wanted_ = &control; }
  void GiveWanted();

  // This window can't have it any more: gives it to the first that takes it.
  void Replace(HWND lost);
  // Gives it back to the control that lost it by being disabled or hidden, unless the user has gone on meanwhile.
  void GiveBack();

  // The user leaves the form for another window, and comes back to where they were.
  void Leave();
  void Return();

 private:
  HWND window_;
  ControlSlots& slots_;
  std::function<HWND(Slot&)> touch_;
  HWND last_ = nullptr;              // had it when the user left the form
  HWND lost_ = nullptr;              // had it when it was disabled or hidden
  HWND standIn_ = nullptr;           // has it meanwhile
  const Control* wanted_ = nullptr;  // has asked for it
};

}  // namespace tagrix

#endif
