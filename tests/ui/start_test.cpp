// The program starts, switches its pages, refuses to start without its files, and closes.
#include <bit>
#include <fstream>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

using StartTest = UiTest;

// Whether it is dark where a window has its lower left corner on the screen, a few pixels within.
bool IsDark(HWND window) {
  RECT area;
  GetWindowRect(window, &area);
  const HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, area.left + 8, area.bottom - 8);
  ReleaseDC(nullptr, screen);
  return GetGValue(colour) < 0x80;
}

BOOL CALLBACK CountWindow(HWND /*window*/, LPARAM count) {
  ++*std::bit_cast<int*>(count);
  return TRUE;
}

TEST_F(StartTest, ShowsEachPageAtAClick) {
  const Program& program = Start();
  // A control of each page, in the order of the buttons.
  const char* shown[] = {"mp3_lst",  "lister_input_txt", "bulk_lst",        "pls_lst",
                         "burn_lst", "setup_lngcmb",     "about_update_btn"};
  for (int page = 6; page >= 0; --page) {
    program.Click("page_btn" + std::to_string(page));
    const auto onlyThis = [&] {
      bool fits = true;
      for (int other = 0; other < 7; ++other) fits = fits && program.Shows(shown[other]) == (other == page);
      return fits;
    };
    EXPECT_TRUE(Until(onlyThis)) << shown[page];
    Picture(std::to_string(page));
  }
  program.Close("tagrix");
  EXPECT_TRUE(program.Ends());
}

// The program makes the window of a control that a test asks for: so here is clicked where it is drawn.
TEST_F(StartTest, WhatIsOnlyDrawnWorksAtTheFirstTouch) {
  const Program& program = Start();
  const HWND form = program.Window("tagrix");
  const auto windows = [form] {
    int count = 0;
    EnumChildWindows(form, CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
  };
  RECT first;
  GetWindowRect(program.Window("page_btn0"), &first);
  EXPECT_LT(windows(), 10);
  ClickAt({first.right + 40, first.bottom - 10});
  EXPECT_TRUE(Until([&] { return program.Shows("lister_input_txt"); }));
  Press(VK_TAB);
  EXPECT_TRUE(Until([&] { return windows() > 20; })) << windows();
}

TEST_F(StartTest, AsksOverTheWindowWhenTheBurningProgramIsMissing) {
  ClearSettings();
  SetSetting(L"AutoUpd", L"0");
  const Program& program = Start();
  program.Window("question");
  EXPECT_TRUE(program.Shows("tagrix"));
  Picture("");
  program.Click("again_chk");
  program.Click("answer1_btn");
  EXPECT_TRUE(Until([&] { return Setting(L"AskCopyToDVD") == L"0"; }));
}

TEST_F(StartTest, TurnsDarkAndLightWithTheSystem) {
  constexpr const wchar_t* kThemes = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
  const Program& program = Start();
  program.Click("browse_btn");
  program.Window("Choixrecoldir");
  for (const DWORD light : {0UL, 1UL}) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kThemes, L"AppsUseLightTheme", REG_DWORD, &light, sizeof light);
    SendMessageW(HWND_BROADCAST, WM_SETTINGCHANGE, 0, reinterpret_cast<LPARAM>(L"ImmersiveColorSet"));
    for (const char* name : {"tagrix", "mp3_lst", "artist_txt", "Choixrecoldir", "file_lst"}) {
      EXPECT_TRUE(Until([&] { return IsDark(program.Window(name)) == (light == 0); })) << name << light;
    }
  }
}

TEST_F(StartTest, NeedsWholeLanguage) {
  std::ofstream(folder_ / "english.lf", std::ios::binary) << std::string(100'000, '\xFE');
  const Program& program = Start();
  EXPECT_EQ(program.Message(), L"Language file error, you must reinstall Tagrix and contact technical support");
  EXPECT_FALSE(program.Shows("tagrix"));
  program.Answer(IDOK);
  EXPECT_TRUE(program.Ends());
}

}  // namespace
}  // namespace tagrix::ui
