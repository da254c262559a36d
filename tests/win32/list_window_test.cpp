#include <gtest/gtest.h>
#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include <string>

#include "forms/lists.h"
#include "win32/test_form.h"

namespace tagrix {
namespace {

// A form with one list, and what the user has done in it.
struct Lists {
  Form form{"lists"};
  ListBox list;
  std::string events;

  explicit Lists(bool several) : list("list", several) {
    form.startSize = {300, 300};
    form.layout = Column({Stretch(1, list)});
    list.selectionChanged = [this] { events += "selected "; };
    list.doubleClicked = [this](int row) { events += "double" + std::to_string(row) + " "; };
    list.keyPressed = [this](ListKey key) { events += "key" + std::to_string(static_cast<int>(key)) + " "; };
  }
  void Fill(int count) {
    for (int i = 0; i < count; ++i) list.Add(L"row " + std::to_wstring(i));
  }
};

POINT MiddleOf(HWND list, int row) {
  RECT area{LVIR_BOUNDS, 0, 0, 0};
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return {area.left + 20, (area.top + area.bottom) / 2};
}

void ClickRow(TestForm& form, int row) {
  const POINT at = MiddleOf(form["list"], row);
  form.ClickAt("list", at.x, at.y);
}

bool Marked(HWND list, int row) {
  return (SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

std::wstring CellText(HWND list, int row, int column) {
  std::wstring text(100, L'\0');
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  return item.pszText;
}

TEST(ListWindow, AsksOnlyForTheRowsInView) {
  Lists lists(true);
  int asked = 0;
  lists.list.SetColumns({{L"Name", 0}, {L"Length", 60, true}});
  lists.list.cell = [&](int row, int column) {
    ++asked;
    return column == 0 ? lists.list.ItemText(row) : std::to_wstring(row);
  };
  lists.Fill(100'000);
  TestForm shown(lists.form);
  EXPECT_EQ(shown.Send("list", LVM_GETITEMCOUNT), 100'000);
  EXPECT_EQ(CellText(shown["list"], 99'999, 0), L"row 99999");
  EXPECT_EQ(CellText(shown["list"], 5, 1), L"5");
  EXPECT_LT(asked, 1000);
}

TEST(ListWindow, SelectionAndFocusFollowTheModel) {
  Lists lists(true);
  lists.Fill(1000);
  TestForm shown(lists.form);
  lists.list.Select(3);
  lists.list.Select(900);
  shown.Settle();
  EXPECT_TRUE(Marked(shown["list"], 3));
  EXPECT_TRUE(Marked(shown["list"], 900));
  EXPECT_FALSE(Marked(shown["list"], 4));

  lists.list.SelectOnly(800);
  shown.Settle();
  EXPECT_EQ(shown.Send("list", LVM_GETSELECTEDCOUNT), 1);
  const LRESULT top = shown.Send("list", LVM_GETTOPINDEX), page = shown.Send("list", LVM_GETCOUNTPERPAGE);
  EXPECT_LE(top, 800);
  EXPECT_GT(top + page, 800);

  lists.list.RemoveSelected();  // what comes to its place isn't chosen
  shown.Settle();
  EXPECT_EQ(shown.Send("list", LVM_GETITEMCOUNT), 999);
  EXPECT_FALSE(Marked(shown["list"], 800));
  EXPECT_EQ(lists.events, "");
}

TEST(ListWindow, WhatTheUserDoesReachesTheModel) {
  Lists lists(true);
  lists.Fill(10);
  TestForm shown(lists.form);
  ClickRow(shown, 2);
  EXPECT_EQ(lists.list.SelectedIndex(), 2);
  const POINT at = MiddleOf(shown["list"], 5);
  shown.Send("list", WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(at.x, at.y));
  shown.Send("list", WM_LBUTTONUP, MK_SHIFT, MAKELPARAM(at.x, at.y));
  EXPECT_TRUE(lists.list.Selected(2));
  SetFocus(shown["list"]);
  shown.Key(VK_DOWN);
  EXPECT_EQ(lists.list.SelectedCount(), 1);
  const int row = lists.list.SelectedIndex();
  lists.events.clear();
  shown.Key(VK_DELETE);
  shown.Send("list", WM_SYSKEYDOWN, VK_UP);
  shown.Send("list", WM_SYSKEYDOWN, VK_DOWN);
  shown.Key(VK_RETURN);
  EXPECT_TRUE(lists.events.starts_with("key0 key1 key2 ")) << lists.events;
  EXPECT_TRUE(lists.events.ends_with("double" + std::to_string(row) + " ")) << lists.events;
  ClickRow(shown, 3);
  const POINT third = MiddleOf(shown["list"], 3);
  shown.Send("list", WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(third.x, third.y));
  EXPECT_TRUE(lists.events.ends_with("double3 ")) << lists.events;
}

TEST(ListWindow, ASingleSelectionIsNotLostByAClickBesideTheRows) {
  Lists lists(false);
  lists.Fill(3);
  TestForm shown(lists.form);
  ClickRow(shown, 1);
  shown.ClickAt("list", 50, 250);
  EXPECT_EQ(lists.list.SelectedIndex(), 1);
  EXPECT_TRUE(Marked(shown["list"], 1));
  EXPECT_EQ(lists.events, "selected ");
}

TEST(ListWindow, ARowDraggedMovesWithThePointerAndStaysWhereItIsLetGo) {
  Lists lists(false);
  lists.Fill(6);
  lists.list.dragged = [&](int from, int to) { lists.list.MoveItem(from, to); };
  TestForm shown(lists.form);
  const HWND list = shown["list"];
  const auto drag = [&](int from, int to) {
    NMLISTVIEW note{};
    note.hdr = {list, 0, LVN_BEGINDRAG};
    note.iItem = from;
    SendMessageW(shown.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&note));
    for (int row = from; row != to; row += from < to ? 1 : -1) {
      POINT at = MiddleOf(list, row + (from < to ? 1 : -1));
      ClientToScreen(list, &at);
      SetCursorPos(at.x, at.y);
      shown.Send("list", WM_MOUSEMOVE, MK_LBUTTON);
    }
    shown.Send("list", WM_LBUTTONUP);
  };
  drag(1, 3);
  EXPECT_EQ(lists.list.ItemText(3), L"row 1");
  EXPECT_EQ(lists.list.ItemText(1), L"row 2");
  drag(3, 0);
  EXPECT_EQ(lists.list.ItemText(0), L"row 1");
  shown.Send("list", WM_MOUSEMOVE);  // let go: it moves no more
  EXPECT_EQ(lists.list.ItemText(0), L"row 1");
  EXPECT_NE(GetCapture(), list);
}

TEST(ListWindow, ACellThatIsCutOffTellsItsWholeText) {
  Lists lists(false);
  lists.Fill(1);
  lists.list.SetColumns({{L"Name", 0}, {L"New name", 60}});
  lists.list.cell = [](int, int column) { return std::wstring(column == 0 ? L"a" : L"a name that is cut off"); };
  TestForm shown(lists.form);
  const HWND list = shown["list"];
  const auto tooltip = [&](int column) {
    RECT cell{LVIR_BOUNDS, column, 0, 0};
    SendMessageW(list, LVM_GETSUBITEMRECT, 0, reinterpret_cast<LPARAM>(&cell));
    POINT at{cell.left + 4, (cell.top + cell.bottom) / 2};
    ClientToScreen(list, &at);
    SetCursorPos(at.x, at.y);
    NMTTDISPINFOW asked{};
    asked.hdr = {nullptr, reinterpret_cast<UINT_PTR>(list), TTN_GETDISPINFOW};
    SendMessageW(shown.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&asked));
    return std::wstring(asked.lpszText);
  };
  EXPECT_EQ(tooltip(0), L"");
  EXPECT_EQ(tooltip(1), L"a name that is cut off");
}

TEST(TreeWindow, OpensBranchesAsTheyAreNeededAndTellsThePath) {
  Form form("tree_form");
  TreeBox tree("tree");
  std::vector<std::wstring> asked;
  tree.children = [&](const std::wstring& path) {
    asked.push_back(path);
    return path == L"C:\\" ? std::vector<std::wstring>{L"Music", L"Other"} : std::vector<std::wstring>{L"Below"};
  };
  form.startSize = {300, 300};
  form.layout = Column({Stretch(1, tree)});
  tree.SetPath(L"C:\\music");
  TestForm shown(form);
  EXPECT_EQ(asked, (std::vector<std::wstring>{L"C:\\", L"C:\\Music"}));
  EXPECT_EQ(tree.Path(), L"C:\\music") << "showing it must not change it";
  SetFocus(shown["tree"]);
  shown.Key(VK_DOWN);
  EXPECT_EQ(tree.Path(), L"C:\\Music\\Below");
  shown.Key(VK_DOWN);
  EXPECT_EQ(tree.Path(), L"C:\\Other");
  tree.SetPath(L"D:\\");
  shown.Settle();
  EXPECT_EQ(asked.back(), L"D:\\");

  tree.SetPath(L"D:\\Below\\Below\\Below\\Below\\Below");
  shown.Settle();
  RECT name{};
  TreeView_GetItemRect(shown["tree"], TreeView_GetSelection(shown["tree"]), &name, TRUE);
  EXPECT_GT(name.left, 90) << "five levels of lines stand before it";
}

}  // namespace
}  // namespace tagrix
