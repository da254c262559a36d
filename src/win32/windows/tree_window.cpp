#include "win32/windows/tree_window.h"

#include <array>
#include <utility>

#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::size_t kLongestName = 300;
// An item's own data: whether its branch has been filled.
constexpr LPARAM kUnfilled = 0, kFilled = 1;

}  // namespace

TreeWindow::TreeWindow(const Site& site, TreeBox& tree)
    : Binding(site, tree,
              {WC_TREEVIEWW, WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS}),
      tree_(tree) {
  Subclass();
}

void TreeWindow::Update(Changes changes) {
  if (changes.Has(Change::Selection)) ShowSelection();
}

void TreeWindow::SetPalette(const Palette& palette) {
  Binding::SetPalette(palette);
  Ask(TVM_SETBKCOLOR, 0, static_cast<LPARAM>(palette.field));
  Ask(TVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(palette.text));
}

void TreeWindow::ShowSelection() {
  RECT area;
  GetClientRect(Window(), &area);
  // Without room it would scroll the beginnings of the names out of view.
  if (tree_.Path().empty() || IsRectEmpty(&area)) return;
  const HTREEITEM selected = Next(TVGN_CARET, nullptr);
  if (selected != nullptr && EqualIgnoringCase(PathOf(selected), tree_.Path())) return;
  showing_ = true;
  ShowPath(tree_.Path());
  showing_ = false;
}

HTREEITEM TreeWindow::Insert(HTREEITEM parent, std::wstring name) {
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent;
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_CHILDREN | TVIF_PARAM;
  insert.item.pszText = name.data();
  insert.item.cChildren = 1;  // as far as is known
  insert.item.lParam = kUnfilled;
  return reinterpret_cast<HTREEITEM>(Ask(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
}

std::wstring TreeWindow::Name(HTREEITEM item) const {
  std::array<wchar_t, kLongestName> name{};
  TVITEMW asked{};
  asked.mask = TVIF_HANDLE | TVIF_TEXT;
  asked.hItem = item;
  asked.pszText = name.data();
  asked.cchTextMax = static_cast<int>(name.size());
  Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
  return name.data();
}

std::wstring TreeWindow::PathOf(HTREEITEM item) const {
  std::wstring path = Name(item);
  for (HTREEITEM parent = Next(TVGN_PARENT, item); parent != nullptr; parent = Next(TVGN_PARENT, parent)) {
    path.insert(0, WithBackslash(Name(parent)));
  }
  return path;
}

void TreeWindow::Fill(HTREEITEM item) {
  TVITEMW state{};
  state.mask = TVIF_HANDLE | TVIF_PARAM;
  state.hItem = item;
  Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&state));
  if (state.lParam == kFilled || !tree_.children) return;
  const std::vector<std::wstring> names = tree_.children(PathOf(item));
  SendMessageW(Window(), WM_SETREDRAW, FALSE, 0);
  for (const std::wstring& name : names) Insert(item, name);
  SendMessageW(Window(), WM_SETREDRAW, TRUE, 0);
  state.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_CHILDREN;
  state.lParam = kFilled;
  state.cChildren = names.empty() ? 0 : 1;
  Ask(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&state));
}

HTREEITEM TreeWindow::Child(HTREEITEM parent, const std::wstring& name) {
  Fill(parent);
  HTREEITEM child = Next(TVGN_CHILD, parent);
  while (child != nullptr && !EqualIgnoringCase(Name(child), name)) child = Next(TVGN_NEXT, child);
  return child;
}

void TreeWindow::ShowPath(const std::wstring& path) {
  const std::vector<std::wstring> parts = Split(path, L"\\");
  // A drive, or a share of another computer: "", "", "server", "share", ...
  const std::size_t first = path.starts_with(L"\\\\") && parts.size() > 3 ? 4 : 1;
  const std::wstring root = first == 1 ? WithBackslash(parts.front()) : L"\\\\" + parts[2] + L"\\" + parts[3] + L"\\";
  HTREEITEM item = Next(TVGN_ROOT, nullptr);
  if (item == nullptr || !EqualIgnoringCase(Name(item), root)) {
    Ask(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    item = Insert(TVI_ROOT, root);
  }
  // A folder that is gone leaves the nearest one above it selected.
  for (std::size_t i = first; i < parts.size() && !parts[i].empty(); ++i) {
    const HTREEITEM child = Child(item, parts[i]);
    if (child == nullptr) break;
    item = child;
  }
  Fill(item);
  Ask(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
  Ask(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
  Ask(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

LRESULT TreeWindow::Message(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Binding::Message(message, wParam, lParam);
  if (message == WM_SIZE && Next(TVGN_ROOT, nullptr) == nullptr) ShowSelection();
  return result;
}

std::optional<LRESULT> TreeWindow::Notify(NMHDR& note) {
  if (note.code == TVN_ITEMEXPANDINGW) {
    const NMTREEVIEWW& view = reinterpret_cast<NMTREEVIEWW&>(note);
    if (view.action == TVE_EXPAND) Fill(view.itemNew.hItem);
    return 0;
  }
  if (note.code == NM_CUSTOMDRAW) {
    auto& draw = reinterpret_cast<NMTVCUSTOMDRAW&>(note);
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || (draw.nmcd.uItemState & CDIS_SELECTED) == 0) {
      return CDRF_DODEFAULT;
    }
    const bool focused = GetFocus() == Window();
    draw.clrTextBk = focused ? Colours().selected : Colours().resting;
    draw.clrText = focused ? Colours().onSelected : Colours().onResting;
    return CDRF_DODEFAULT;
  }
  if (note.code == TVN_SELCHANGEDW) {
    const HTREEITEM item = reinterpret_cast<NMTREEVIEWW&>(note).itemNew.hItem;
    if (!showing_ && item != nullptr) tree_.SetPath(PathOf(item));
    return 0;
  }
  return std::nullopt;
}

}  // namespace tagrix
