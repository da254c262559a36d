// What a program that reads the screen aloud finds: a role and a name for everything on every page.
#include <windows.h>
// Needs windows.h before it.
#include <oleacc.h>

#include <bit>
#include <fstream>

#include "ui/ui_fixture.h"

namespace tagrix::ui {
namespace {

// The system takes the caption of buttons; for what holds texts of the user the label right before it, seen or not.
std::wstring NameOf(HWND window) {
  const std::wstring kind = ClassOf(window);
  if (kind == L"Button" || kind == L"Static") return TextOf(window);
  const HWND before = GetWindow(window, GW_HWNDPREV);
  return before != nullptr && ClassOf(before) == L"Static" ? TextOf(before) : std::wstring();
}

// Of IAccessible; what the compiler's libraries hold under its name is something else.
constexpr GUID kAccessible{0x618736e0, 0x3c3d, 0x11cf, {0x81, 0x0c, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71}};

std::wstring RoleOf(HWND window) {
  IAccessible* object = nullptr;
  if (FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, kAccessible, reinterpret_cast<void**>(&object)))) {
    return L"?";
  }
  VARIANT self{}, role{};
  self.vt = VT_I4;
  wchar_t text[64] = L"?";
  if (SUCCEEDED(object->get_accRole(self, &role)) && role.vt == VT_I4) {
    GetRoleTextW(static_cast<DWORD>(role.lVal), text, static_cast<UINT>(std::size(text)));
  }
  object->Release();
  return text;
}

struct Listing {
  std::ofstream file;
  int count = 0;
};

BOOL CALLBACK List(HWND window, LPARAM parameter) {
  auto& listing = *std::bit_cast<Listing*>(parameter);
  const std::wstring kind = ClassOf(window);
  const bool part = GetParent(window) != GetAncestor(window, GA_ROOT);  // of a list or a combo box
  if (!IsWindowVisible(window) || part) return TRUE;
  const std::wstring name = NameOf(window), role = RoleOf(window);
  if (name.empty() && kind == L"Static") return TRUE;  // a status line without a status
  EXPECT_NE(name, L"") << std::string(kind.begin(), kind.end());
  EXPECT_NE(role, L"?") << std::string(kind.begin(), kind.end());
  for (const std::wstring& text : {kind, role, name}) {
    for (const wchar_t c : text) listing.file << (c < 128 ? static_cast<char>(c) : '?');
    listing.file << '\t';
  }
  listing.file << '\n';
  ++listing.count;
  return TRUE;
}

using AccessibilityTest = UiTest;

TEST_F(AccessibilityTest, EverythingHasARoleAndAName) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const Program& program = Start();
  const HWND form = program.Window("tagrix");
  std::filesystem::create_directories(PathFrom(L"TAGRIX_SCREENSHOTS"));
  Listing listing{std::ofstream(PathFrom(L"TAGRIX_SCREENSHOTS") / "accessible.txt")};
  SendMessageW(form, WM_GETOBJECT, 0, OBJID_CLIENT);
  for (int page = 0; page < 7; ++page) {
    program.Click("page_btn" + std::to_string(page));
    Sleep(500);
    listing.file << "\nPage " << page + 1 << '\n';
    EnumChildWindows(form, List, reinterpret_cast<LPARAM>(&listing));
  }
  EXPECT_GT(listing.count, 7 * 9 + 60);
}

}  // namespace
}  // namespace tagrix::ui
