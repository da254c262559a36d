// What every window of a control shares: it is made for a model, follows its changes and tells it what the user does.
#ifndef TAGRIX_WIN32_WINDOWS_BINDING_H
#define TAGRIX_WIN32_WINDOWS_BINDING_H

#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include <optional>
#include <string>

#include "forms/control.h"
#include "win32/windows/fonts.h"
#include "win32/windows/palette.h"

namespace tagrix {

// A set of `Change`.
class Changes {
 public:
  static Changes All() {
    Changes all;
    all.bits_ = ~0U;
    return all;
  }
  void Add(Change change) { bits_ |= 1U << static_cast<unsigned>(change); }
  bool Has(Change change) const { return (bits_ & 1U << static_cast<unsigned>(change)) != 0; }
  bool Any() const { return bits_ != 0; }

 private:
  unsigned bits_ = 0;
};

// The window class and styles of a control; a child window that takes the keyboard has WS_TABSTOP.
struct WindowKind {
  const wchar_t* className;
  DWORD style;
  DWORD exStyle = 0;
};

// Where a control's window is made: in its form, in pixels, and whether shown and enabled (WS_VISIBLE, WS_DISABLED).
struct Site {
  HWND form;
  Rect rect;
  DWORD state = 0;
};

class Binding {
 public:
  Binding(const Site& site, const Control& control, const WindowKind& kind);
  virtual ~Binding();
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  HWND Window() const { return window_; }

  // Brings the window up to date with the model. Where the two agree nothing is touched, so that no event goes back.
  virtual void Update(Changes changes) = 0;
  // A font for a new DPI, or after the system's has changed.
  virtual void SetFonts(const Fonts& fonts);
  // Colours, which stay where they are until the next ones come there.
  virtual void SetPalette(const Palette& palette);

  // What the window reports.
  virtual void Command(int /*code*/) {}
  virtual std::optional<LRESULT> Notify(NMHDR& /*note*/) { return std::nullopt; }
  virtual void Draw(const DRAWITEMSTRUCT& /*item*/) {}
  // Enter or Esc while it has the keyboard; false leaves the key to the form.
  virtual bool TakeKey(WPARAM /*key*/) { return false; }
  // The tooltip to show at the pointer when the control has none of its own.
  virtual std::wstring TooltipHere() { return {}; }

 protected:
  // Lets `Message` see the window's messages. Not by the system's subclassing: that looks up a property of the window
  // for every message.
  void Subclass();
  virtual LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);
  std::wstring WindowText() const;
  // Sets the window's text unless it is that already.
  void ShowText(const std::wstring& text);
  const Palette& Colours() const { return *palette_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_;
  const Palette* palette_ = nullptr;
  bool themed_ = false;         // its scroll bars have been made dark once
  WNDPROC original_ = nullptr;  // what `Subclass` has replaced
};

// Sent by a control's window to its form: the text of the tooltip at the pointer has changed.
inline constexpr UINT kHideTooltip = WM_APP + 10;

// The same: an event of the model ended with the std::exception_ptr that lParam points to. It must not pass through the
// system's code, so the form hands it to whoever runs the event loop.
inline constexpr UINT kFailed = WM_APP + 11;

// Sent to a form by a test in another process: gives the window that shows the control, or is the form, whose name the
// global atom wParam holds.
inline constexpr UINT kFindControl = WM_APP + 12;

}  // namespace tagrix

#endif
