#include "win32/windows/process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <new>
#include <string>
#include <thread>

#include "base/failure.h"
#include "win32/ports/shell.h"
#include "win32/test_form.h"

namespace tagrix {
namespace {

// Waits for a window with that class and title; null when it doesn't come.
HWND Await(const wchar_t* kind, const wchar_t* title) {
  HWND window = nullptr;
  for (int wait = 0; wait < 500 && window == nullptr; ++wait) {
    Sleep(10);
    window = FindWindowW(kind, title);
  }
  return window;
}

// Runs a program that throws; returns the text of the message box that it ends with.
std::wstring Message(const std::function<int()>& program) {
  std::wstring text;
  std::thread user([&] {
    const HWND box = Await(L"#32770", L"Tagrix");
    text = TextOf(GetDlgItem(box, 0xFFFF));
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(RunShowingFailures(program), 1);
  user.join();
  return text;
}

TEST(Process, ShowsWhateverIsThrown) {
  EXPECT_EQ(RunShowingFailures([] { return 7; }), 7);
  EXPECT_EQ(Message([]() -> int { throw Failure(Action::Open, L"C:\\x", L"Gone."); }),
            L"The file could not be opened.\r\nC:\\x\r\nGone.");
  EXPECT_EQ(Message([]() -> int { throw std::bad_alloc(); }), L"There is not enough memory.");
  EXPECT_EQ(Message([]() -> int { throw std::out_of_range("no control"); }), L"no control");
  EXPECT_NE(Message([]() -> int { throw 5; }), L"");
}

extern "C" __declspec(dllimport) void NowhereToBeFound();

TEST(Process, AMissingLibraryFailsTheCall) {
  try {
    NowhereToBeFound();
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Path(), L"no_such_library.dll");
  }
}

TEST(Process, TakesNothingFromTheCurrentFolderNorFromHalfAPath) {
  namespace fs = std::filesystem;
  const fs::path before = fs::current_path(), folder = fs::temp_directory_path() / "tagrix current";
  const fs::path program = fs::path(_wgetenv(L"SystemRoot")) / "system32" / "hostname.exe";
  fs::remove_all(folder);
  fs::create_directories(folder);
  fs::copy_file(program, folder / "here.exe", fs::copy_options::overwrite_existing);
  std::ofstream(folder / "here.dll") << "no library";
  // Stands where the system would look first for a path with a blank.
  std::ofstream(fs::temp_directory_path() / "tagrix.exe") << "no program";
  fs::current_path(folder);
  PrepareProcess();
  EXPECT_EQ(LoadLibraryW(L"here.dll"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
  WinShell shell;
  EXPECT_EQ(shell.Start(L"here.exe", L"here.exe"), nullptr);
  EXPECT_EQ(shell.Start(L"", L"here.exe"), nullptr);
  const std::wstring path = (folder / "here.exe").wstring();
  EXPECT_NE(shell.Start(path, path + L" /x"), nullptr);
  EXPECT_NE(GetErrorMode() & SEM_FAILCRITICALERRORS, 0U);
  fs::current_path(before);
}

TEST(Process, StartsAProgramWithItsArgumentsAndSeesItEnd) {
  const auto list = std::filesystem::temp_directory_path() / "my list.c2c";
  std::ofstream(list) << "a";
  const std::wstring editor = std::wstring(_wgetenv(L"SystemRoot")) + L"\\system32\\notepad.exe";
  const auto process = WinShell().Start(editor, editor + L" \"" + list.wstring() + L"\"");
  ASSERT_NE(process, nullptr);
  const HWND window = Await(L"Notepad", L"my list.c2c - Notepad");
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(process->Running());
  PostMessageW(window, WM_CLOSE, 0, 0);
  for (int wait = 0; wait < 500 && process->Running(); ++wait) Sleep(10);
  EXPECT_FALSE(process->Running());
}

}  // namespace
}  // namespace tagrix
