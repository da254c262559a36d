// What the pages share: the ports, the settings and texts, the busy state and the controls outside of all pages.
#ifndef TAGRIX_CORE_CONTEXT_H
#define TAGRIX_CORE_CONTEXT_H

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/language.h"
#include "core/settings.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ftp_client.h"
#include "platform/prompts.h"
#include "platform/registry.h"
#include "platform/secure_http.h"
#include "platform/shell.h"
#include "platform/tcp_socket.h"

namespace tagrix {

class LongWork;

// The implementations of the ports, chosen by whoever composes the program.
struct Ports {
  Files& files;
  Registry& registry;
  CodePage& codePage;
  EventLoop& events;
  Clock& clock;
  Shell& shell;
  Prompts& prompts;
  TcpSocket& socket;
  FtpClient& ftp;
  HttpsClient& https;
};

struct Context : Ports {
  // `folder`: the folder of the program's executable, without a trailing "\".
  Context(const Ports& ports, std::wstring folder)
      : Ports(ports), programFolder(std::move(folder)), settings(ports.registry) {}

  const std::wstring programFolder;
  Settings settings;
  Language language;
  std::vector<std::wstring> styles;  // genre names; position i names ID3v1 genre 147 - i; at most 148

  bool busy = false;              // SetBusy, IsBusy
  bool running = false;           // a command is being carried out (core/dispatch.h)
  std::uint64_t noticeUntil = 0;  // ticks; until then the status line shows what the user has to see (core/long_work.h)
  std::vector<LongWork*> works;   // the long operations under way, the innermost last (core/long_work.h)

  // What stands around the pages.
  std::array<Button, 7> page_btn{Button("page_btn0"), Button("page_btn1"), Button("page_btn2"), Button("page_btn3"),
                                 Button("page_btn4"), Button("page_btn5"), Button("page_btn6")};
  Label status_lbl{"status_lbl", LabelStyle::Path};
  ProgressBox progress_box{"progress_box"};
  Button cancel_btn{"cancel_btn"};

  // Set by the main window: asks the user whether what isn't finished may go; ends the program without asking.
  std::function<bool()> mayQuit = [] { return true; };
  std::function<void()> quit = [] {};

  // The text of a language message.
  std::wstring Text(int message) const { return language.GetLangText(message); }
};

// Marks the program as busy: the page buttons are enabled exactly when it is not, and it refuses to close. A plain
// flag, not a counter.
void SetBusy(Context& context, bool busy);
inline bool IsBusy(const Context& context) { return context.busy; }

}  // namespace tagrix

#endif
