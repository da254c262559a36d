#include "win32/windows/form_window.h"

#include <gtest/gtest.h>
// Need windows.h before them.
#include <commctrl.h>
#include <shlobj.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "forms/buttons.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_controls.h"
#include "win32/test_form.h"
#include "win32/windows/prompts.h"

namespace tagrix {
namespace {

// Two pages on top of each other with one of nearly everything.
struct Window {
  Form form{"test_form"};
  Frame pages[2] = {Frame("page0"), Frame("page1")};
  Frame options{"options_frm", L"Options"};
  Label caption{"caption_lbl"}, status{"status_lbl", LabelStyle::Path};
  TextBox words{"words_txt"}, answer{"answer_txt"};
  CheckBox tick{"tick_chk", L"&Tick"};
  OptionGroup group;
  OptionButton first{"first_opt", group, L"First"}, second{"second_opt", group, L"Second"};
  ComboBox choice{"choice_cmb"}, pattern{"pattern_cmb", true};
  ProgressBox progress{"progress"};
  Button go{"go_btn", L"&Go"}, other{"other_btn", L"Other"};
  Picture picture{"picture"};
  std::string events;

  Window() {
    form.caption = L"A window";
    for (const wchar_t* text : {L"one", L"two", L"three"}) {
      choice.Add(text);
      pattern.Add(text);
    }
    caption.SetText(L"&Words:");
    first.Choose();
    pages[1].SetVisible(false);
    words.edited = [this] { events += "edited "; };
    tick.clicked = [this] { events += "tick "; };
    second.clicked = [this] { events += "second "; };
    choice.chosen = [this] { events += "chosen "; };
    pattern.edited = [this] { events += "pattern "; };
    go.clicked = [this] { events += "go "; };
    form.layout = Margin(
        11, Column({Stretch(1, Stack({Framed(pages[0], Column({Row({caption, Stretch(1, words)}),
                                                               Framed(options, Row({tick, first, second, choice})),
                                                               Row({pattern, go, Spacer()})})),
                                      Framed(pages[1], Column({answer, other, Stretch(1, picture)}))})),
                    Row({Stretch(1, status), progress})}));
  }
};

TEST(FormWindow, ShowsItsModelsAndFollowsThem) {
  Window window;
  TestForm shown(window.form);
  EXPECT_EQ(TextOf(shown["options_frm"]), L"Options");
  EXPECT_EQ(shown.Send("first_opt", BM_GETCHECK), BST_CHECKED);

  window.form.caption = L"Another";
  window.words.SetText(L"abba");
  window.status.SetText(L"C:\\Music");
  window.tick.SetChecked(true);
  window.second.Choose();
  window.choice.Select(1);
  window.pattern.SetText(L"free text");
  window.progress.SetPercent(42);
  window.go.SetEnabled(false);
  shown.Settle();
  EXPECT_EQ(TextOf(shown.Window()), L"Another");
  EXPECT_EQ(TextOf(shown["words_txt"]), L"abba");
  EXPECT_EQ(TextOf(shown["status_lbl"]), L"C:\\Music");
  EXPECT_EQ(shown.Send("tick_chk", BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(shown.Send("first_opt", BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(shown.Send("second_opt", BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(shown.Send("choice_cmb", CB_GETCURSEL), 1);
  EXPECT_EQ(TextOf(shown["pattern_cmb"]), L"free text");
  EXPECT_EQ(shown.Send("progress", PBM_GETPOS), 42);
  EXPECT_FALSE(IsWindowEnabled(shown["go_btn"]));
  EXPECT_EQ(window.events, "") << "a change by the program is no doing of the user's";
}

TEST(FormWindow, WhatTheUserDoesReachesTheModelsOnce) {
  Window window;
  TestForm shown(window.form);
  shown.Type("words_txt", L"ab");
  EXPECT_EQ(window.words.Text(), L"ab");
  shown.Send("tick_chk", BM_CLICK);
  EXPECT_TRUE(window.tick.Checked());
  EXPECT_EQ(shown.Send("tick_chk", BM_GETCHECK), BST_CHECKED);
  shown.Send("second_opt", BM_CLICK);
  EXPECT_FALSE(window.first.Checked());
  SetFocus(shown["choice_cmb"]);
  shown.Key(VK_DOWN);
  EXPECT_EQ(window.choice.Text(), L"one");
  SendMessageW(GetWindow(shown["pattern_cmb"], GW_CHILD), WM_CHAR, L'x', 0);
  EXPECT_EQ(window.pattern.Text(), L"x");
  shown.Send("go_btn", BM_CLICK);
  EXPECT_EQ(window.events, "edited edited tick second chosen pattern go ");
}

TEST(FormWindow, OnlyADeliberateKeyStartsSomething) {
  Window window;
  window.form.defaultButton = &window.go;
  window.form.escaped = [&] { window.events += "escaped "; };
  TestForm shown(window.form);
  SetFocus(shown["tick_chk"]);
  const auto post = [&](UINT message, WPARAM key, LPARAM bits) {
    PostMessageW(GetFocus(), message, key, bits);
    shown.Settle();
  };
  constexpr LPARAM kHeld = 1 << 30, kAlt = 1 << 29;
  post(WM_CHAR, 'g', 1);
  post(WM_SYSCHAR, 'g', kAlt | kHeld);
  post(WM_KEYDOWN, VK_RETURN, kHeld);
  post(WM_KEYDOWN, VK_ESCAPE, kHeld);
  EXPECT_EQ(window.events, "");
  post(WM_SYSCHAR, 'g', kAlt);
  post(WM_KEYDOWN, VK_RETURN, 1);
  post(WM_KEYDOWN, VK_ESCAPE, 1);
  EXPECT_EQ(window.events, "go go escaped ");
  window.answer.TakeFocus();  // on a page that is not in view
  window.words.TakeFocus();
  shown.Settle();
  EXPECT_EQ(GetFocus(), shown["words_txt"]);
}

TEST(FormWindow, AKeyThatIsHeldAnswersNoQuestion) {
  static bool pressed = false;
  SetTimer(nullptr, 0, 100, [](HWND, UINT, UINT_PTR timer, DWORD) {
    if (!std::exchange(pressed, true)) {
      PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1 << 30);
      return;
    }
    KillTimer(nullptr, timer);
    PostMessageW(GetAncestor(GetFocus(), GA_ROOT), WM_COMMAND, IDNO, 0);
  });
  EXPECT_FALSE(WinPrompts().Question(L"?"));
}

TEST(FormWindow, TakesWhatIsDroppedOnIt) {
  Window window;
  std::vector<std::wstring> dropped;
  window.form.dropped = [&](std::vector<std::wstring> paths) { dropped = std::move(paths); };
  TestForm shown(window.form);
  const std::wstring names(L"C:\\Music\\A\0C:\\b.mp3\0", 20);
  const HGLOBAL block = GlobalAlloc(GHND, sizeof(DROPFILES) + (names.size() + 1) * sizeof(wchar_t));
  auto* const files = static_cast<DROPFILES*>(GlobalLock(block));
  files->pFiles = sizeof *files;
  files->fWide = TRUE;
  std::copy(names.begin(), names.end(), reinterpret_cast<wchar_t*>(files + 1));
  GlobalUnlock(block);
  SendMessageW(shown.Window(), WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0);
  EXPECT_EQ(dropped, (std::vector<std::wstring>{L"C:\\Music\\A", L"C:\\b.mp3"}));
}

TEST(FormWindow, ATextThatThePageCorrectsComesBackWithTheCaretInPlace) {
  Window window;
  window.words.edited = [&] { window.words.SetText(Replace(window.words.Text(), L"?", L"")); };
  TestForm shown(window.form);
  shown.Type("words_txt", L"abc");
  shown.Send("words_txt", EM_SETSEL, 1, 1);
  shown.Type("words_txt", L"?x");
  EXPECT_EQ(TextOf(shown["words_txt"]), L"axbc");
}

TEST(FormWindow, WhatItDrawsItselfIsThereForScreenReadersAndFollowsItsAccessKey) {
  Window window;
  window.answer.SetSpokenName(L"Answer");
  TestForm shown(window.form);
  EXPECT_EQ(FindWindowExW(shown.Window(), nullptr, L"Static", L"&Words:"), nullptr);
  SetFocus(shown["go_btn"]);
  PostMessageW(shown["go_btn"], WM_SYSCHAR, L'w', 1 << 29);
  shown.Settle();
  EXPECT_EQ(GetFocus(), shown["words_txt"]);

  SendMessageW(shown.Window(), WM_GETOBJECT, 0, OBJID_CLIENT);
  const HWND label = GetWindow(shown["words_txt"], GW_HWNDPREV);
  EXPECT_EQ(TextOf(label), L"&Words:");
  window.caption.SetText(L"Others:");
  window.pages[0].SetVisible(false);
  window.pages[1].SetVisible(true);
  shown.Settle();
  EXPECT_EQ(TextOf(label), L"Others:");
  EXPECT_FALSE(IsWindowVisible(label));
  EXPECT_EQ(TextOf(GetWindow(shown["answer_txt"], GW_HWNDPREV)), L"Answer");
}

TEST(FormWindow, PagesGetTheirWindowsWhenTheyAreFirstShownInTheLayoutsOrder) {
  Window window;
  TestForm shown(window.form);
  EXPECT_EQ(shown["answer_txt"], nullptr);
  window.pages[0].SetVisible(false);
  window.pages[1].SetVisible(true);
  window.other.SetEnabled(false);
  shown.Settle();
  EXPECT_FALSE(shown.Shows("words_txt"));
  ASSERT_TRUE(shown.Shows("answer_txt"));
  EXPECT_FALSE(IsWindowEnabled(shown["other_btn"]));

  window.other.SetEnabled(true);
  shown.Settle();
  SetFocus(shown["answer_txt"]);
  shown.Key(VK_TAB);
  EXPECT_EQ(GetFocus(), shown["other_btn"]);
  window.other.SetEnabled(false);  // the keyboard must not be lost
  shown.Settle();
  EXPECT_EQ(GetFocus(), shown["answer_txt"]);
  window.other.SetEnabled(true);
  shown.Settle();
  EXPECT_EQ(GetFocus(), shown["other_btn"]);
}

TEST(FormWindow, WhatIsDisabledIsNotSeenEnabledForAMoment) {
  Window window;
  window.pages[0].SetVisible(false);
  window.pages[1].SetVisible(true);
  TestForm shown(window.form);
  const HWND answer = shown["answer_txt"];
  window.pages[1].SetVisible(false);
  shown.Settle();
  std::string seen;
  const auto watch = [](HWND self, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR events) -> LRESULT {
    if (message == WM_WINDOWPOSCHANGED && (reinterpret_cast<const WINDOWPOS*>(l)->flags & SWP_SHOWWINDOW) != 0)
      *reinterpret_cast<std::string*>(events) += IsWindowEnabled(self) ? "enabled" : "disabled";
    return DefSubclassProc(self, message, w, l);
  };
  SetWindowSubclass(answer, watch, 99, reinterpret_cast<DWORD_PTR>(&seen));
  window.answer.SetEnabled(false);
  window.pages[1].SetVisible(true);
  shown.Settle();
  EXPECT_EQ(seen, "disabled");
}

TEST(FormWindow, FollowsTheMonitorsDpiAndKeepsToItsLeastSize) {
  Window window;
  TestForm shown(window.form);
  const Size before = SizeOf(shown["progress"]);
  MINMAXINFO limits{};
  SendMessageW(shown.Window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  const Size whole = SizeOf(shown.Window());
  EXPECT_EQ(limits.ptMinTrackSize.x, whole.width);
  EXPECT_EQ(limits.ptMinTrackSize.y, whole.height);

  RECT suggested{10, 20, 1000, 800};
  SendMessageW(shown.Window(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
  shown.Settle();
  EXPECT_EQ(SizeOf(shown["progress"]).width, before.width * 3 / 2);
  EXPECT_EQ(SizeOf(shown.Window()), (Size{990, 780}));

  window.tick.SetText(std::wstring(150, L'W'));  // needs more room than there is
  shown.Settle();
  EXPECT_GT(SizeOf(shown.Window()).width, 1000);
}

TEST(FormWindow, EndOfSessionIsNeverRefusedButTheCloseBoxAsks) {
  Window window;
  bool busy = true;
  window.form.canClose = [&] { return !busy; };
  TestForm shown(window.form);
  SendMessageW(shown.Window(), WM_CLOSE, 0, 0);
  EXPECT_FALSE(window.form.Closing());
  EXPECT_EQ(SendMessageW(shown.Window(), WM_QUERYENDSESSION, 0, 0), TRUE);
  busy = false;
  SendMessageW(shown.Window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(window.form.Closing());
}

}  // namespace
}  // namespace tagrix
