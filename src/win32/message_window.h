// A window without a face, which receives the messages that threads and sockets post to one object.
#ifndef TAGRIX_WIN32_MESSAGE_WINDOW_H
#define TAGRIX_WIN32_MESSAGE_WINDOW_H

#include <windows.h>

#include <functional>

namespace tagrix {

class MessageWindow {
 public:
  // Called for timers and for messages from WM_APP on.
  using Handler = std::function<void(UINT message, WPARAM w, LPARAM l)>;

  explicit MessageWindow(Handler handler) : handler_(std::move(handler)) {}
  ~MessageWindow();
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;

  // The window, made when it is first asked for; to be asked on the window thread.
  HWND Handle();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);

  Handler handler_;
  HWND window_ = nullptr;
};

}  // namespace tagrix

#endif
