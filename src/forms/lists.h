// Controls that hold many entries: list boxes, combo boxes, folder trees.
#ifndef TAGRIX_FORMS_LISTS_H
#define TAGRIX_FORMS_LISTS_H

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

namespace tagrix {

struct ListColumn {
  std::wstring title;
  int width = 0;  // device-independent units; 0: shares the room that the others leave
  bool alignRight = false;
};

// Keys that lists hand on beyond those that move and select.
enum class ListKey { Delete, MoveUp, MoveDown, Rename };  // MoveUp/MoveDown: Alt with the arrow keys; Rename: F2

// Emphasised, greyed, in the colour of warnings, in that of errors and emphasised.
enum class RowMark { None, Changed, Dim, Doubtful, Wrong };

// An entry of a context menu.
struct MenuEntry {
  std::wstring text;  // "&" marks the access key
  std::function<void()> chosen;
  bool enabled = true;
};

// Rows of text, each with one 32-bit value, and a selection. Positions count from 0; those handed over must exist.
class ListBox : public Control {
 public:
  explicit ListBox(std::string name, bool multiSelect = false) : Control(std::move(name)), multiSelect_(multiSelect) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool MultiSelect() const { return multiSelect_; }
  int Count() const { return static_cast<int>(items_.size()); }
  const std::wstring& ItemText(int i) const { return At(i).text; }
  std::vector<std::wstring> Texts() const;
  std::int32_t Value(int i) const { return At(i).value; }
  void Add(std::wstring text, std::int32_t value = 0);
  void Append(std::vector<std::wstring> texts);  // many at once, announced once
  void SetItemText(int i, std::wstring text);
  void SetValue(int i, std::int32_t value);
  // Takes an entry to another place, selected; those between give way.
  void MoveItem(int from, int to);
  // Removes every selected entry in one pass.
  void RemoveSelected();
  void Clear();

  bool Selected(int i) const { return At(i).selected; }
  void Select(int i, bool selected = true);  // in a single-selection list the others are deselected
  // Selects just this entry; -1 selects none. Moves the focus there and scrolls it into view.
  void SelectOnly(int i);
  // The first selected position, -1 when nothing is selected.
  int SelectedIndex() const;
  int SelectedCount() const;
  // The entry that the renderer should keep in view, and the keyboard's place; -1 none.
  int Focus() const { return focus_; }

  // Columns to show instead of the plain texts; `cell` is asked only for rows in view.
  void SetColumns(std::vector<ListColumn> columns);
  const std::vector<ListColumn>& Columns() const { return columns_; }
  std::function<std::wstring(int row, int column)> cell;
  std::function<RowMark(int row)> mark;
  // The cells or marks of rows have changed though the items have not.
  void Refresh() { Announce(Change::Items); }

  // The user's doings; the renderer and tests call these.
  void ClickItem(int i);
  void DoubleClickItem(int i);
  void PressKey(ListKey key);
  // The pointer drags entry `from` and has just moved over entry `to`.
  void Drag(int from, int to);

  std::function<void()> selectionChanged;  // by the user's hand
  std::function<void(int)> doubleClicked;  // also Enter on an entry
  std::function<void(ListKey)> keyPressed;
  // Set: entries can be dragged. Called for every row that the pointer enters; `from` is the entry's place by then.
  std::function<void(int from, int to)> dragged;
  // The entries of the context menu for what is selected; asked when the user wants to see it.
  std::function<std::vector<MenuEntry>()> menu;

  // What an empty list says: how to fill it.
  const std::wstring& Hint() const { return hint_; }
  void SetHint(std::wstring hint) { Set(hint_, std::move(hint), Change::Items); }

 private:
  struct Item {
    std::wstring text;
    std::int32_t value = 0;
    bool selected = false;
  };
  const Item& At(int i) const { return items_.at(static_cast<std::size_t>(i)); }
  Item& At(int i) { return items_.at(static_cast<std::size_t>(i)); }

  std::vector<Item> items_;
  std::vector<ListColumn> columns_;
  std::wstring hint_;
  bool multiSelect_;
  int focus_ = -1;
};

// A text with a list of proposals to choose from; editable, or a choice from the list only.
class ComboBox : public Control {
 public:
  explicit ComboBox(std::string name, bool editable = false) : Control(std::move(name)), editable_(editable) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool Editable() const { return editable_; }
  int Count() const { return static_cast<int>(items_.size()); }
  const std::wstring& ItemText(int i) const { return items_.at(static_cast<std::size_t>(i)); }
  void Add(std::wstring text);
  void Clear();
  // The position of the chosen entry, -1 when the text is none of them.
  int SelectedIndex() const { return selected_; }
  // Chooses an entry; its text becomes the combo's.
  void Select(int i);
  // Sets the text; an entry equal to it is thereby chosen. A list-only combo takes only texts of entries (case
  // ignored).
  void SetText(std::wstring text) override;

  // The user's doings.
  void Choose(int i);
  void Type(std::wstring text);

  std::function<void()> chosen;  // an entry was chosen by the user's hand
  std::function<void()> edited;  // the text was typed in

 private:
  std::vector<std::wstring> items_;
  int selected_ = -1;
  bool editable_;
};

// A tree of folders, filled as far as it is opened. A path is a drive root ("C:\") or a folder below ("C:\Music").
class TreeBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  // The names of the folders directly below a path; asked when a branch is opened.
  std::function<std::vector<std::wstring>(const std::wstring& path)> children;

  // Shows the tree of a drive ("C:") with the given folder on it selected and opened.
  void SetPath(const std::wstring& path) {
    if (path == path_) return;
    Set(path_, path, Change::Selection);
    if (pathChanged) pathChanged();
  }
  const std::wstring& Path() const { return path_; }

  std::function<void()> pathChanged;  // also after SetPath

 private:
  std::wstring path_;
};

}  // namespace tagrix

#endif
