// hits_win32 PROGRAM FOLDER PORT COUNT: searches each source so many times in the window of the program, with an album
// folder open and the disc server as its proxy. Prints the median time from Enter in the query dialog to the hits in
// the list, by source, and the longest pause between two looks at the list, all in milliseconds.
#include "ui/driver.h"

// Needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace {

using tagrix::ui::Program;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr const wchar_t* kSources[] = {L"MusicBrainz", L"gnudb", L"FreeDB"};
// These find different numbers of discs, so that it shows when the list is another one.
constexpr const wchar_t* kWords[] = {L"paper lanterns", L"low tide"};
// MusicBrainz is asked at most once a second.
constexpr DWORD kPeace = 1000;

void SetSettings(const std::wstring& port) {
  using tagrix::ui::SetSetting;
  tagrix::ui::ClearSettings();
  SetSetting(L"AskCopyToDVD", L"0");
  SetSetting(L"AutoUpd", L"0");
  SetSetting(L"UseProxy", L"1");
  SetSetting(L"ProxyName", L"127.0.0.1");
  SetSetting(L"ProxyPort", port);
  SetSetting(L"MusicBrainzServer", L"http://127.0.0.1:" + port);
}

// Whether the list has the keyboard, which comes to it with its hits. Unlike a message this doesn't hold up the
// program.
bool HasKeyboard(HWND list) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetWindowThreadProcessId(list, nullptr), &info) && info.hwndFocus == list;
}

double SearchOnce(const Program& program, HWND list, const std::wstring& words, Milliseconds& longest) {
  program.Click("go_btn");
  program.Window("AskQuery");
  program.Fill("query_txt", words);
  Sleep(kPeace);
  const LRESULT before = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
  const auto start = Clock::now();
  tagrix::ui::Press(VK_RETURN);
  auto last = start;
  for (LRESULT count = 0; count == 0 || count == before; last = Clock::now()) {
    Sleep(1);
    if (HasKeyboard(list)) count = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
    longest = std::max<Milliseconds>(longest, Clock::now() - last);
    if (Clock::now() - start > std::chrono::seconds(30)) throw std::runtime_error("no hits");
  }
  return Milliseconds(last - start).count();
}

}  // namespace

int wmain(int, wchar_t** arguments) try {
  const std::size_t count = std::stoul(arguments[4]);
  SetSettings(arguments[3]);
  const Program program(arguments[1], arguments[2]);
  const HWND list = program.Window("resalb_lst");
  if (!tagrix::ui::Until([&] { return !program.Rows("mp3_lst").empty(); })) return 1;
  Milliseconds longest{0};
  std::size_t searches = 0;
  for (const wchar_t* source : kSources) {
    tagrix::ui::SetSetting(L"Source", source);
    std::vector<double> times;
    for (std::size_t i = 0; i <= count; ++i) {
      const double took = SearchOnce(program, list, kWords[searches++ % 2], longest);
      if (i > 0) times.push_back(took);  // the first one loads libraries
    }
    std::sort(times.begin(), times.end());
    std::printf("%ls %.3f\n%ls-slowest %.3f\n", source, times[times.size() / 2], source, times.back());
  }
  std::printf("pause %.3f\n", longest.count());
  tagrix::ui::ClearSettings();
  return 0;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "%s\n", failure.what());
  return 1;
}
