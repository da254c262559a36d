// A window without a face, which receives the messages that threads and sockets post to one object.
#ifndef TAGRIX_WIN32_PORTS_MESSAGE_WINDOW_H
#define TAGRIX_WIN32_PORTS_MESSAGE_WINDOW_H

#include <windows.h>

#include <exception>
#include <functional>
#include <utility>

namespace tagrix {

class MessageWindow {
 public:
  // Called for timers and for messages from WM_APP on.
  using Handler = std::function<void(UINT message, WPARAM w, LPARAM l)>;

  explicit MessageWindow(Handler handler) : handler_(std::move(handler)) {}
  ~MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  // Throws what the handler has thrown when it was last called, if the window is one of these: it must not pass through
  // the system's code, so whoever runs the event loop calls this.
  static void Rethrow(HWND window);

  // The window, made when it is first asked for; to be asked on the window thread.
  HWND Handle();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);

  Handler handler_;
  HWND window_ = nullptr;
  std::exception_ptr failure_;
};

}  // namespace tagrix

#endif
