#include "ui/driver.h"

// Needs windows.h before it.
#include <commctrl.h>

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace tagrix::ui {
namespace {

constexpr UINT kFindControl = WM_APP + 12;  // win32/windows/binding.h
constexpr const wchar_t* kKey = L"Software\\Ostrel Corp.\\Tagrix";

template <typename Visit>
void EachChild(HWND parent, Visit visit) {
  EnumChildWindows(
      parent,
      [](HWND window, LPARAM context) -> BOOL {
        (*std::bit_cast<Visit*>(context))(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&visit));
}

// Asks a window of the program, which may have ended meanwhile.
LRESULT Ask(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, 20'000, &result);
  return static_cast<LRESULT>(result);
}

bool IsUsable(HWND window) {
  for (; window != nullptr; window = GetAncestor(window, GA_PARENT)) {
    if (!IsWindowEnabled(window)) return false;
  }
  return true;
}

void Send(const INPUT& input) {
  INPUT one = input;
  SendInput(1, &one, sizeof one);
}

void SendKey(WORD key, wchar_t character, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = character;
  input.ki.dwFlags = flags;
  Send(input);
}

// Moves the pointer there and presses or releases the button in one event, so that a window that appears under the
// pointer meanwhile changes nothing.
void Mouse(POINT point, DWORD event) {
  constexpr int kWhole = 65536;  // the width and the height of the screen in the units of mouse events
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = (point.x * kWhole + kWhole / 2) / GetSystemMetrics(SM_CXSCREEN);
  input.mi.dy = (point.y * kWhole + kWhole / 2) / GetSystemMetrics(SM_CYSCREEN);
  input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | event;
  Send(input);
}

void Activate(HWND window) {
  const HWND form = GetAncestor(window, GA_ROOT);
  SetForegroundWindow(form);
  Until([&] { return GetForegroundWindow() == form; }, 2000);
}

// Whether a button is held down by the mouse.
bool IsHeld(HWND button) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetWindowThreadProcessId(button, nullptr), &info) && info.hwndCapture == button;
}

}  // namespace

void ClickAt(POINT point) {
  Mouse(point, MOUSEEVENTF_LEFTDOWN);
  Mouse(point, MOUSEEVENTF_LEFTUP);
}

namespace {

// The focus that a new form takes when it has appeared ends a click that has just begun: then it is made again.
void ClickMiddle(HWND window) {
  Activate(window);
  RECT area;
  GetWindowRect(window, &area);
  const POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  if (ClassOf(window) != L"Button") return ClickAt(middle);
  bool held = false;
  for (int tries = 0; !held && tries < 5 && IsWindow(window); ++tries) {
    Mouse(middle, MOUSEEVENTF_LEFTDOWN);
    held = Until([&] { return IsHeld(window); }, 3000);
    Sleep(50);
    held = held && IsHeld(window);
    Mouse(middle, MOUSEEVENTF_LEFTUP);
  }
}

// Memory of another process, in which it can answer a message.
class RemoteMemory {
 public:
  RemoteMemory(HANDLE process, size_t size)
      : process_(process),
        address_(static_cast<char*>(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE))) {}
  ~RemoteMemory() { VirtualFreeEx(process_, address_, 0, MEM_RELEASE); }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  char* Address() const { return address_; }
  void Write(const void* bytes, size_t size) const { WriteProcessMemory(process_, address_, bytes, size, nullptr); }
  void Read(size_t offset, void* bytes, size_t size) const {
    ReadProcessMemory(process_, address_ + offset, bytes, size, nullptr);
  }

 private:
  HANDLE process_;
  char* address_;
};

}  // namespace

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = L"";
  return std::wstring(name, static_cast<size_t>(GetClassNameW(window, name, static_cast<int>(std::size(name)))));
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<size_t>(Ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  text.resize(static_cast<size_t>(Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

bool Until(const std::function<bool()>& condition, int milliseconds) {
  for (const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(milliseconds); !condition(); Sleep(20)) {
    if (GetTickCount64() > end) return condition();
  }
  return true;
}

void SetSetting(const std::wstring& name, const std::wstring& text) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name.c_str(), REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::wstring Setting(const std::wstring& name) {
  wchar_t text[1024] = L"";
  DWORD size = sizeof text;
  RegGetValueW(HKEY_CURRENT_USER, kKey, name.c_str(), RRF_RT_REG_SZ, nullptr, text, &size);
  return text;
}

void ClearSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }

void Press(WORD key, WORD held) {
  if (held != 0) SendKey(held, 0, 0);
  SendKey(key, 0, 0);
  SendKey(key, 0, KEYEVENTF_KEYUP);
  if (held != 0) SendKey(held, 0, KEYEVENTF_KEYUP);
}

void Hold(WORD key, WORD held) {
  SendKey(held, 0, 0);
  for (int times = 0; times < 10; ++times) {
    SendKey(key, 0, 0);
    Sleep(50);
  }
  SendKey(key, 0, KEYEVENTF_KEYUP);
  SendKey(held, 0, KEYEVENTF_KEYUP);
}

void Type(const std::wstring& text) {
  for (const wchar_t c : text) {
    SendKey(0, c, KEYEVENTF_UNICODE);
    SendKey(0, c, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

Program::Program(const std::filesystem::path& executable, const std::filesystem::path& argument) {
  std::wstring command = L"\"" + executable.wstring() + L"\"";
  if (!argument.empty()) command += L" \"" + argument.wstring() + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(executable.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      executable.parent_path().c_str(), &start, &started)) {
    throw std::runtime_error("cannot start " + executable.string());
  }
  CloseHandle(started.hThread);
  process_.Reset(started.hProcess);
  id_ = started.dwProcessId;
}

Program::~Program() {
  if (Ends(0)) return;
  TerminateProcess(process_.Get(), 1);
  WaitForSingleObject(process_.Get(), 10'000);
}

bool Program::Ends(int milliseconds) const {
  return WaitForSingleObject(process_.Get(), static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0;
}

std::vector<HWND> Program::TopWindows() const {
  std::vector<HWND> all;
  EnumWindows(
      [](HWND window, LPARAM found) -> BOOL {
        if (IsWindowVisible(window)) std::bit_cast<std::vector<HWND>*>(found)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&all));
  std::erase_if(all, [this](HWND window) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner != id_;
  });
  return all;
}

HWND Program::FindVisible(const std::string& name) const {
  const ATOM atom = GlobalAddAtomA(name.c_str());
  HWND found = nullptr;
  for (const HWND top : TopWindows()) {
    if (found != nullptr || ClassOf(top) != L"TagrixForm") continue;
    const HWND window = std::bit_cast<HWND>(Ask(top, kFindControl, atom));
    if (window != nullptr && IsWindowVisible(window)) found = window;
  }
  GlobalDeleteAtom(atom);
  return found;
}

HWND Program::Window(const std::string& name) const {
  HWND window = nullptr;
  if (!Until([&] { return (window = FindVisible(name)) != nullptr; })) {
    throw std::runtime_error("nothing shows " + name);
  }
  return window;
}

HWND Program::Usable(const std::string& name) const {
  HWND window = nullptr;
  if (!Until([&] { return (window = FindVisible(name)) != nullptr && IsUsable(window); })) {
    throw std::runtime_error("cannot use " + name);
  }
  return window;
}

bool Program::Enabled(const std::string& name) const { return IsUsable(Window(name)); }

bool Program::HasKeyboard(const std::string& name) const {
  const HWND window = Window(name);
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) && info.hwndFocus == window;
}

std::wstring Program::Text(const std::string& name) const { return TextOf(Window(name)); }

std::vector<std::wstring> Program::Rows(const std::string& list, int column) const {
  constexpr size_t kLength = 512;
  const HWND window = Window(list);
  const RemoteMemory memory(process_.Get(), sizeof(LVITEMW) + kLength * sizeof(wchar_t));
  LVITEMW item{};
  item.iSubItem = column;
  item.cchTextMax = kLength;
  item.pszText = reinterpret_cast<wchar_t*>(memory.Address() + sizeof item);
  memory.Write(&item, sizeof item);
  std::vector<std::wstring> rows;
  for (LRESULT row = 0, count = Ask(window, LVM_GETITEMCOUNT); row < count; ++row) {
    wchar_t text[kLength] = L"";
    Ask(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(sizeof item, text, sizeof text);
    text[kLength - 1] = L'\0';
    rows.emplace_back(text);
  }
  return rows;
}

void Program::Click(const std::string& name) const { ClickMiddle(Usable(name)); }

void Program::ClickRow(const std::string& list, int row) const {
  const HWND window = Usable(list);
  Activate(window);
  Ask(window, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT area{};
  area.left = LVIR_LABEL;
  const RemoteMemory memory(process_.Get(), sizeof area);
  memory.Write(&area, sizeof area);
  Ask(window, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(memory.Address()));
  memory.Read(0, &area, sizeof area);
  POINT point{area.left + 10, (area.top + area.bottom) / 2};
  ClientToScreen(window, &point);
  ClickAt(point);
}

void Program::Fill(const std::string& name, const std::wstring& text) const {
  Click(name);
  Press('A', VK_CONTROL);
  Press(VK_DELETE);
  Type(text);
  if (!Until([&] { return Text(name) == text; })) throw std::runtime_error("cannot type into " + name);
}

void Program::Close(const std::string& form) const { PostMessageW(Window(form), WM_SYSCOMMAND, SC_CLOSE, 0); }

HWND Program::FindMessageBox() const {
  const std::vector<HWND> windows = TopWindows();
  const auto found =
      std::find_if(windows.begin(), windows.end(), [](HWND window) { return ClassOf(window) == L"#32770"; });
  return found == windows.end() ? nullptr : *found;
}

std::wstring Program::Message() const {
  HWND box = nullptr;
  if (!Until([&] { return (box = FindMessageBox()) != nullptr; })) throw std::runtime_error("no message");
  std::wstring text;
  EachChild(box, [&](HWND window) {
    if (ClassOf(window) == L"Static" && text.empty()) text = TextOf(window);
  });
  return text;
}

void Program::Answer(int button) const {
  Message();
  const HWND box = FindMessageBox();
  ClickMiddle(GetDlgItem(box, button));
  if (!Until([&] { return IsWindow(box) == FALSE; })) throw std::runtime_error("the message stays");
}

}  // namespace tagrix::ui
