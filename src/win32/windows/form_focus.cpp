#include "win32/windows/form_focus.h"

#include "forms/text_controls.h"

namespace tagrix {
namespace {

bool CanHaveKeyboard(HWND window) { return IsWindowEnabled(window) && IsWindowVisible(window); }

}  // namespace

void FormFocus::SetTo(const Control* control) {
  HWND target = control == nullptr ? nullptr : touch_(slots_.Of(*control));
  if (target == nullptr) {
    Slot* first = slots_.FirstStop();
    target = first == nullptr ? window_ : touch_(*first);
  }
  SetFocus(target);
  const Slot* slot = slots_.Of(target);
  if (slot != nullptr && dynamic_cast<const TextBox*>(slot->control) != nullptr) {
    SendMessageW(target, EM_SETSEL, 0, -1);
  }
}

bool FormFocus::FollowAccessKey(wchar_t key) {
  const Slot* slot = slots_.WithAccessKey(key);
  if (slot != nullptr) SetTo(slot->control);
  return slot != nullptr;
}

void FormFocus::GiveWanted() {
  if (wanted_ == nullptr) return;
  const Slot& slot = slots_.Of(*std::exchange(wanted_, nullptr));
  if (slot.Usable() && GetActiveWindow() == window_) SetTo(slot.control);
}

void FormFocus::Replace(HWND lost) {
  SetTo(nullptr);
  if (lost_ == nullptr || lost != standIn_) lost_ = lost;
  standIn_ = GetFocus();
}

void FormFocus::GiveBack() {
  const HWND focus = GetFocus();
  if (focus != standIn_ && IsChild(window_, focus)) lost_ = nullptr;  // the user has gone on
  if (focus == standIn_ && lost_ != nullptr && CanHaveKeyboard(lost_)) SetFocus(std::exchange(lost_, nullptr));
}

void FormFocus::Leave() {
  if (IsChild(window_, GetFocus())) last_ = GetFocus();
}

void FormFocus::Return() {
  if (CanHaveKeyboard(last_)) {
    SetFocus(last_);
  } else {
    Replace(last_);
  }
  GiveBack();
}

}  // namespace tagrix
