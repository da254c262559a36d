#include "win32/windows/prompts.h"

// Need windows.h before them.
#include <cderr.h>
#include <commdlg.h>
#include <objbase.h>
#include <shlobj.h>

#include <algorithm>
#include <string_view>

#include "base/failure.h"
#include "base/paths.h"
#include "base/publisher.h"
#include "base/text.h"
#include "win32/windows/event_loop.h"
#include "win32/windows/form_keys.h"
#include "win32/windows/form_window.h"
#include "win32/windows/process.h"

namespace tagrix {
namespace {

constexpr std::size_t kRoomForNames = 1 << 20;  // characters; some tens of thousands of names

// Pairs of texts, each ended by a zero, and one more at the end. The system takes no blanks between patterns.
std::wstring FilterText(const std::vector<FileFilter>& filters) {
  std::wstring text;
  for (const FileFilter& filter : filters) {
    text += filter.label + L'\0' + Replace(filter.patterns, L" ", L"") + L'\0';
  }
  return text + L'\0';
}

// A chosen path, or a folder and several names, each ended by a zero; `nameAt` is where the first name begins.
OpenFilesAnswer ReadAnswer(std::wstring_view chosen, std::size_t nameAt) {
  OpenFilesAnswer answer;
  std::wstring_view folder = chosen.substr(0, nameAt);
  while (!folder.empty() && folder.back() == L'\0') folder.remove_suffix(1);
  answer.folder = folder;
  if (answer.folder.size() > 3) answer.folder = WithoutBackslash(answer.folder);  // "C:\" keeps it
  while (nameAt < chosen.size() && chosen[nameAt] != L'\0') {
    const std::size_t end = std::min(chosen.find(L'\0', nameAt), chosen.size());
    answer.names.emplace_back(chosen.substr(nameAt, end - nameAt));
    nameAt = end + 1;
  }
  return answer;
}

// Keeps keys that are held from the system's boxes, as forms do by themselves.
class HeldKeysIgnored {
 public:
  HeldKeysIgnored() : hook_(SetWindowsHookExW(WH_MSGFILTER, Filter, nullptr, GetCurrentThreadId())) {}
  ~HeldKeysIgnored() { UnhookWindowsHookEx(hook_); }
  HeldKeysIgnored(const HeldKeysIgnored&) = delete;
  HeldKeysIgnored& operator=(const HeldKeysIgnored&) = delete;

 private:
  static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_DIALOGBOX && IsHeld(*reinterpret_cast<const MSG*>(lParam))) return TRUE;
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  HHOOK hook_;
};

int ShowBox(HWND owner, const std::wstring& text, UINT kind) {
  const HeldKeysIgnored ignored;
  return MessageBoxW(owner, text.c_str(), publisher::kProduct, kind);
}

}  // namespace

HWND WinPrompts::Owner() const { return open_.empty() ? nullptr : open_.back()->Window(); }

bool WinPrompts::AnyClosing() const {
  return std::any_of(open_.begin(), open_.end(), [](const FormWindow* form) { return form->Closing(); });
}

void WinPrompts::Message(const std::wstring& text) { ShowBox(Owner(), text, MB_OK); }

bool WinPrompts::Question(const std::wstring& text) {
  return ShowBox(Owner(), text, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

// Commands report their own failures; this is for what happens outside of them, such as drawing.
void WinPrompts::Guarded(const std::function<void()>& event) {
  try {
    event();
  } catch (...) {
    ShowException(Owner());
  }
}

void WinPrompts::ShowModal(Form& dialog) {
  {
    FormWindow window(dialog, Owner());
    open_.push_back(&window);
    window.Show();
    if (dialog.shown) Guarded(dialog.shown);
    MSG message;
    while (!AnyClosing() && GetMessageW(&message, nullptr, 0, 0) > 0) Guarded([&] { Dispatch(message); });
    open_.pop_back();
  }
  if (dialog.closed) dialog.closed();
}

OpenFilesAnswer WinPrompts::OpenFiles(const OpenFilesRequest& request) {
  const std::wstring filters = FilterText(request.filters);
  for (std::size_t room = kRoomForNames;; room *= 8) {
    std::wstring chosen(room, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = Owner();
    dialog.lpstrFilter = filters.c_str();
    dialog.lpstrFile = chosen.data();
    dialog.nMaxFile = static_cast<DWORD>(chosen.size());
    dialog.lpstrInitialDir = request.folder.c_str();
    dialog.lpstrTitle = request.title.c_str();
    dialog.Flags = OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&dialog)) return ReadAnswer(chosen, dialog.nFileOffset);
    if (CommDlgExtendedError() != FNERR_BUFFERTOOSMALL) return {};
  }
}

std::wstring WinPrompts::ChooseNetworkFolder() {
  struct Apartment {  // what the system's dialog lives in
    HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    ~Apartment() {
      if (SUCCEEDED(entered)) CoUninitialize();
    }
  } const apartment;
  std::wstring folder;
  std::wstring name(MAX_PATH, L'\0');
  PIDLIST_ABSOLUTE network = nullptr;
  SHGetKnownFolderIDList(FOLDERID_NetworkFolder, 0, nullptr, &network);
  BROWSEINFOW browse{};
  browse.hwndOwner = Owner();
  browse.pidlRoot = network;
  browse.pszDisplayName = name.data();
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON;
  if (PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&browse); chosen != nullptr) {
    if (SHGetPathFromIDListW(chosen, name.data())) folder = name.substr(0, name.find(L'\0'));
    CoTaskMemFree(chosen);
  }
  CoTaskMemFree(network);
  return folder;
}

}  // namespace tagrix
