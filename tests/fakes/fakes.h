// In-memory twins of the small ports, and a context made of them.
#ifndef TAGRIX_TESTS_FAKES_FAKES_H
#define TAGRIX_TESTS_FAKES_FAKES_H

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/letter_case.h"
#include "core/context.h"
#include "fakes/fake_files.h"
#include "sources/disc_source.h"

namespace tagrix {

using Texts = std::vector<std::wstring>;

class FakeRegistry : public Registry {
 public:
  std::wstring GetRegValue(Hive hive, const std::wstring& key, const std::wstring& name) override {
    return values_[hive][key + L"\\" + name];
  }
  void SetRegValue(Hive hive, const std::wstring& key, const std::wstring& name, const std::wstring& text) override {
    values_[hive][key + L"\\" + name] = text;
    written.push_back(name);
  }

  std::vector<std::wstring> written;  // value names, in the order in which they were set

 private:
  std::map<Hive, std::map<std::wstring, std::wstring, LessIgnoringCase>> values_;
};

// Latin-1; everything else becomes "?".
class FakeCodePage : public CodePage {
 public:
  std::string ToBytes(std::wstring_view text) override;
  std::wstring ToText(std::string_view bytes) override;
  wchar_t DecimalSeparator() override { return L'.'; }
};

// Time passes only while something waits; events are functions that tests queue.
class FakeEvents : public EventLoop {
 public:
  void DoEvents() override;
  void Wait(int milliseconds) override {
    if (queue_.empty()) ticks += static_cast<std::uint64_t>(milliseconds);
  }
  std::uint64_t TickCount() override { return ticks; }

  void Post(std::function<void()> event) { queue_.push_back(std::move(event)); }

  std::function<void()> eachTime;  // DoEvents runs it every time, after what was posted before
  std::uint64_t ticks = 1000;
  int rounds = 0;  // how often DoEvents ran

 private:
  std::deque<std::function<void()>> queue_;
};

class FakeClock : public Clock {
 public:
  int CurrentYear() override { return 2004; }
};

class FakeShell : public Shell {
 public:
  explicit FakeShell(FakeFiles& files) : files_(files) {}
  bool OpenLink(const std::wstring& link) override {
    links.push_back(link);
    return true;
  }
  std::unique_ptr<Process> Start(const std::wstring& program, const std::wstring& commandLine) override;
  bool OpenFile(const std::wstring& path) override { return Keep(path, opened); }
  bool ShowInFolder(const std::wstring& path) override { return Keep(path, shown); }
  void CopyText(const std::wstring& text) override { copied = text; }
  void PlaySoundFile(const std::wstring& path) override { sounds.push_back(path); }

  std::wstring copied;
  std::vector<std::wstring> opened, shown, links, programs, commandLines, sounds;
  bool canStart = true;
  int runsFor = 0;  // how often Running() answers true

 private:
  bool Keep(const std::wstring& path, std::vector<std::wstring>& kept) {
    if (files_.Find(path)) kept.push_back(path);
    return files_.Find(path).has_value();
  }

  FakeFiles& files_;
};

// Plays the user. Questions are answered from `answers` (Yes when it is empty), dialogs are worked by `dialogs` in turn
// (a dialog without one is closed at once), the file dialog answers `openFiles`.
class FakePrompts : public Prompts {
 public:
  void Message(const std::wstring& text) override { messages.push_back(text); }
  bool Question(const std::wstring& text) override;
  void ShowModal(Form& dialog) override;
  OpenFilesAnswer OpenFiles(const OpenFilesRequest& request) override {
    lastRequest = request;
    return openFiles;
  }

  std::wstring ChooseNetworkFolder() override { return networkFolder; }

  std::wstring networkFolder;
  std::vector<std::wstring> messages;   // shown, in order
  std::vector<std::wstring> questions;  // asked, in order
  std::vector<std::string> shown;       // names of the dialogs shown
  Form* open = nullptr;                 // the dialog shown last
  std::deque<bool> answers;
  std::deque<std::function<void(Form&)>> dialogs;
  OpenFilesAnswer openFiles;
  OpenFilesRequest lastRequest;
};

// A socket whose server is a function: it gets what was sent and returns what comes back before the server closes.
class FakeSocket : public TcpSocket {
 public:
  explicit FakeSocket(FakeEvents& events) : events_(events) {}
  SocketState State() const override { return state_; }
  void Connect(const std::wstring& host, int port) override;
  void Close() override;
  void SendData(std::string_view bytes) override;
  std::string GetData() override { return std::exchange(received_, {}); }

  std::function<std::string(const std::string& request)> serve;  // none: the connection is refused
  bool closeAfterAnswer = true;
  std::wstring host;  // of the last Connect
  int port = 0;
  std::vector<std::string> requests;

 private:
  // Posts an event that is dropped when the connection has been closed meanwhile.
  void Later(std::function<void()> event);

  FakeEvents& events_;
  SocketState state_ = SocketState::Closed;
  std::string received_;
  int connection_ = 0;
};

class FakeFtp : public FtpClient {
 public:
  explicit FakeFtp(FakeEvents& events, FakeFiles& files) : events_(events), files_(files) {}
  void Download(const FtpRequest& request) override;
  void Close() override { ++transfer_; }
  bool InternetConnected() override { return connected; }

  std::map<std::wstring, std::string> remote;  // "/folder/file" to content
  std::vector<FtpRequest> requests;
  bool connected = true;
  bool stall = false;  // the server never answers

 private:
  FakeEvents& events_;
  FakeFiles& files_;
  int transfer_ = 0;
};

// An HTTPS client whose server is a function.
class FakeHttps : public HttpsClient {
 public:
  explicit FakeHttps(FakeEvents& events) : events_(events) {}

  void Get(const HttpsRequest& request) override {
    Close();
    requests.push_back(request);
    if (stall) return;
    events_.Post([this, request, number = number_] {
      if (number != number_) return;
      HttpsAnswer answer = serve ? serve(request) : HttpsAnswer();
      if (answer.body.size() > request.limit) answer = {HttpsAnswer::End::TooLong};
      Close();
      if (ended) ended(std::move(answer));
    });
  }
  void Close() override { ++number_; }

  std::function<HttpsAnswer(const HttpsRequest&)> serve;  // none: not reached
  std::vector<HttpsRequest> requests;
  bool stall = false;  // the server never answers

 private:
  FakeEvents& events_;
  int number_ = 0;
};

// A context on fakes, whose texts are "<0>", "<1>" and so on (those with placeholders hold them).
struct TestContext {
  TestContext();

  FakeFiles files;
  FakeRegistry registry;
  FakeCodePage codePage;
  FakeEvents events;
  FakeClock clock;
  FakeShell shell{files};
  FakePrompts prompts;
  FakeSocket socket{events};
  FakeFtp ftp{events, files};
  FakeHttps https{events};
  Context context{Ports{files, registry, codePage, events, clock, shell, prompts, socket, ftp, https}, L"C:\\Tagrix"};
};

// Discs are alike when they are in all that a source gives.
inline bool operator==(const DiscTrack& a, const DiscTrack& b) { return a.title == b.title && a.frames == b.frames; }
inline bool operator==(const Disc& a, const Disc& b) {
  return std::tie(a.artist, a.album, a.genre, a.year, a.tracks) ==
         std::tie(b.artist, b.album, b.genre, b.year, b.tracks);
}
inline bool operator==(const DiscHit& a, const DiscHit& b) {
  return std::tie(a.title, a.category, a.id) == std::tie(b.title, b.category, b.id);
}

// What message `n` is in a TestContext.
std::wstring TestText(int n);

// The bytes of a file of so many lines, each the word and its number.
std::string LanguageFile(int lines, const std::string& word);

template <typename Kind>
Kind* FindIn(const Node& tree, const std::string& name) {
  if (tree.control != nullptr && tree.control->Name() == name) return dynamic_cast<Kind*>(tree.control);
  for (const Node& child : tree.children) {
    if (Kind* found = FindIn<Kind>(child, name)) return found;
  }
  return nullptr;
}

// The control of a form that bears the name; throws std::out_of_range when there is none or it is of another kind.
template <typename Kind>
Kind& Find(const Node& tree, const std::string& name) {
  if (Kind* found = FindIn<Kind>(tree, name)) return *found;
  throw std::out_of_range("no control " + name);
}

}  // namespace tagrix

#endif
