// The window of a form: the main window or a modal dialog.
#ifndef TAGRIX_WIN32_WINDOWS_FORM_WINDOW_H
#define TAGRIX_WIN32_WINDOWS_FORM_WINDOW_H

#include <windows.h>

#include <exception>
#include <memory>
#include <string>

#include "forms/form.h"
#include "win32/windows/form_content.h"
#include "win32/windows/taskbar_progress.h"

namespace tagrix {

class FormWindow {
 public:
  // Makes the window without showing it. `owner` is null for the main window. `form` outlives it.
  FormWindow(Form& form, HWND owner);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  void Show();
  HWND Window() const { return window_; }
  bool Closing() const { return form_.Closing(); }

  // The form that a window is or belongs to; null for windows of others.
  static FormWindow* Around(HWND window);
  // Acts on a key that is for the form as a whole: Enter, Esc, Tab, arrows between options, access keys.
  bool TakeKey(MSG& message);
  // Throws what an event has thrown since the last call.
  void Rethrow();

 private:
  static FormWindow* Of(HWND form) { return reinterpret_cast<FormWindow*>(GetWindowLongPtrW(form, GWLP_USERDATA)); }
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Notify(NMHDR& note);
  bool EnterOrEsc(WPARAM key);
  bool FollowFormKey(WPARAM key);
  void KeepSize();

  void Paint();
  void NewPalette();
  HWND Find(ATOM name);
  void Flush();
  SIZE WindowSize(Size client) const;
  RECT WorkArea() const;
  void PlaceAtStart();
  // Makes the controls; from then on `Place` keeps them where they belong.
  void Fill();
  void Place();
  void GrowToLeast();
  void NewFonts(int dpi);
  void Limit(MINMAXINFO& limits) const;

  Form& form_;
  HWND owner_;
  HWND window_;
  std::unique_ptr<FormContent> content_;
  TaskbarProgress taskbar_;
  std::wstring caption_;
  std::wstring tooltip_;  // the text handed out last
  bool filled_ = false;   // the controls are made
  std::exception_ptr failure_;
  bool woken_ = false;
};

}  // namespace tagrix

#endif
