// The tooltips of a form. One window shows them all; it is made when the pointer first moves.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_TOOLTIPS_H
#define TAGRIX_WIN32_WINDOWS_FORM_TOOLTIPS_H

#include <windows.h>

#include <optional>
#include <set>

namespace tagrix {

// The form is asked for the texts (TTN_GETDISPINFO); idFrom is then the window or the id.
class FormTooltips {
 public:
  explicit FormTooltips(HWND form) : form_(form) {}
  ~FormTooltips();
  FormTooltips(const FormTooltips&) = delete;
  FormTooltips& operator=(const FormTooltips&) = delete;

  bool Made() const { return window_ != nullptr; }
  // Texts are broken at so many pixels.
  void Make(int widest);
  // Whether the pointer has moved since it was first asked for: it may only lie where the form has appeared.
  bool PointerMoved();

  // From now on the window has one, or what the form draws there; an empty area has none for now.
  void AddWindow(HWND control);
  void PlaceArea(UINT_PTR id, const RECT& area);
  // A mouse message of the form itself.
  void Tell(const MSG& message) const;
  void Hide() const;

 private:
  HWND form_, window_ = nullptr;
  std::set<UINT_PTR> known_;
  std::optional<DWORD> firstPointer_;
};

}  // namespace tagrix

#endif
