#include "forms/lists.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tagrix {

void ListBox::Add(std::wstring text, std::int32_t value) {
  items_.push_back(Item{std::move(text), value, false});
  Announce(Change::Items);
}

void ListBox::Append(std::vector<std::wstring> texts) {
  if (texts.empty()) return;
  for (std::wstring& text : texts) items_.push_back(Item{std::move(text), 0, false});
  Announce(Change::Items);
}

std::vector<std::wstring> ListBox::Texts() const {
  std::vector<std::wstring> texts;
  texts.reserve(items_.size());
  for (const Item& item : items_) texts.push_back(item.text);
  return texts;
}

void ListBox::SetItemText(int i, std::wstring text) { Set(At(i).text, std::move(text), Change::Items); }

void ListBox::SetValue(int i, std::int32_t value) { Set(At(i).value, value, Change::Items); }

void ListBox::MoveItem(int from, int to) {
  const auto at = [&](int i) { return items_.begin() + i; };
  if (from < to) {
    std::rotate(at(from), at(from) + 1, at(to) + 1);
  } else {
    std::rotate(at(to), at(from), at(from) + 1);
  }
  Announce(Change::Items);
  SelectOnly(to);
}

void ListBox::RemoveSelected() {
  std::erase_if(items_, [](const Item& item) { return item.selected; });
  focus_ = -1;
  Announce(Change::Items);
}

void ListBox::Clear() {
  if (items_.empty()) return;
  items_.clear();
  focus_ = -1;
  Announce(Change::Items);
}

void ListBox::Select(int i, bool selected) {
  if (!multiSelect_ && selected) {
    SelectOnly(i);
    return;
  }
  Set(At(i).selected, selected, Change::Selection);
}

void ListBox::SelectOnly(int i) {
  for (Item& item : items_) item.selected = false;
  if (i >= 0) At(i).selected = true;
  focus_ = i;
  Announce(Change::Selection);
}

int ListBox::SelectedIndex() const {
  const auto found = std::find_if(items_.begin(), items_.end(), [](const Item& item) { return item.selected; });
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

int ListBox::SelectedCount() const {
  return static_cast<int>(std::count_if(items_.begin(), items_.end(), [](const Item& item) { return item.selected; }));
}

void ListBox::SetColumns(std::vector<ListColumn> columns) {
  columns_ = std::move(columns);
  Announce(Change::Look);
}

void ListBox::ClickItem(int i) {
  if (!Enabled()) return;
  SelectOnly(i);
  if (selectionChanged) selectionChanged();
}

void ListBox::DoubleClickItem(int i) {
  if (!Enabled()) return;
  ClickItem(i);
  if (doubleClicked) doubleClicked(i);
}

void ListBox::PressKey(ListKey key) {
  if (Enabled() && keyPressed) keyPressed(key);
}

void ListBox::Drag(int from, int to) {
  if (Enabled() && dragged && from != to) dragged(from, to);
}

void ComboBox::Add(std::wstring text) {
  items_.push_back(std::move(text));
  Announce(Change::Items);
}

void ComboBox::Clear() {
  items_.clear();
  selected_ = -1;
  Control::SetText({});
  Announce(Change::Items);
}

void ComboBox::Select(int i) {
  Set(selected_, i, Change::Selection);
  Control::SetText(i < 0 ? std::wstring() : ItemText(i));
}

void ComboBox::SetText(std::wstring text) {
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const std::wstring& item) {
    return editable_ ? item == text : EqualIgnoringCase(item, text);
  });
  if (found != items_.end()) {
    Select(static_cast<int>(found - items_.begin()));
  } else if (editable_) {
    Set(selected_, -1, Change::Selection);
    Control::SetText(std::move(text));
  }
}

void ComboBox::Choose(int i) {
  if (!Enabled()) return;
  Select(i);
  if (chosen) chosen();
}

void ComboBox::Type(std::wstring text) {
  if (!Enabled() || !editable_) return;
  SetText(std::move(text));
  if (edited) edited();
}

}  // namespace tagrix
