// Works the program as a person would: finds what its windows show by name, clicks, types, reads, takes pictures.
#ifndef TAGRIX_TESTS_UI_DRIVER_H
#define TAGRIX_TESTS_UI_DRIVER_H

#include <windows.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "win32/ports/unique.h"

namespace tagrix::ui {

// Waits, at most so long, until the condition holds; returns whether it does.
bool Until(const std::function<bool()>& condition, int milliseconds = 30'000);

// Writes what is on the screen, or where the window stands, into a PNG file.
void SaveScreenshot(const std::filesystem::path& file, HWND window = nullptr);

// A text value under the program's registry key; ClearSettings removes the key.
void SetSetting(const std::wstring& name, const std::wstring& text);
std::wstring Setting(const std::wstring& name);
void ClearSettings();

// The class and the text of a window.
std::wstring ClassOf(HWND window);
std::wstring TextOf(HWND window);

// A running program. Controls are found by their name among the visible windows, topmost first. Every operation waits
// until what it needs is there and throws std::runtime_error when it doesn't come.
class Program {
 public:
  // `argument`: what the program is started with; empty: nothing.
  explicit Program(const std::filesystem::path& executable, const std::filesystem::path& argument = {});
  ~Program();  // ends it when it still runs
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Whether the program ends by itself within that time.
  bool Ends(int milliseconds = 20'000) const;

  // Whether a form or a control of that name can be seen now.
  bool Shows(const std::string& name) const { return FindVisible(name) != nullptr; }
  bool Enabled(const std::string& name) const;
  // Whether the control has the keyboard.
  bool HasKeyboard(const std::string& name) const;
  std::wstring Text(const std::string& name) const;
  std::vector<std::wstring> Rows(const std::string& list, int column = 0) const;

  // Real clicks, once the control can be used.
  void Click(const std::string& name) const;
  void ClickRow(const std::string& list, int row) const;
  // Puts a text in the place of what the control holds, by keys.
  void Fill(const std::string& name, const std::wstring& text) const;
  // Closes a form by its close box.
  void Close(const std::string& form) const;

  // The text of the message box that is open, or will soon be.
  std::wstring Message() const;
  // Presses a button of that box: IDOK, IDYES, IDNO.
  void Answer(int button) const;

  HWND Window(const std::string& name) const;  // waits

 private:
  std::vector<HWND> TopWindows() const;
  HWND FindVisible(const std::string& name) const;
  HWND FindMessageBox() const;
  HWND Usable(const std::string& name) const;

  UniqueKernel process_;
  DWORD id_ = 0;
};

// A real click on the screen.
void ClickAt(POINT point);
// Keys to whatever has the keyboard.
void Type(const std::wstring& text);
void Press(WORD key, WORD held = 0);
// Holds it until it has come some ten times.
void Hold(WORD key, WORD held);

}  // namespace tagrix::ui

#endif
