#include "forms/list_lookups.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/letter_case.h"
#include "base/text.h"

namespace tagrix {
namespace {

template <typename List>
bool Contains(const List& list, const std::wstring& text) {
  for (int i = 0; i < list.Count(); ++i) {
    if (EqualIgnoringCase(list.ItemText(i), text)) return true;
  }
  return false;
}

}  // namespace

bool ListContains(const ListBox& list, std::wstring_view text) { return Contains(list, Trim(text)); }
bool ListContains(const ComboBox& combo, std::wstring_view text) { return Contains(combo, Trim(text)); }

bool ListHasPrefix(const ListBox& list, std::wstring_view text) {
  const std::wstring prefix = Trim(text);
  for (int i = 0; i < list.Count(); ++i) {
    if (StartsWithIgnoringCase(list.ItemText(i), prefix)) return true;
  }
  return false;
}

bool SelectedInList(EventLoop& events, const ListBox& list, std::wstring_view text) {
  bool selected = false;
  for (int i = 0; i < list.Count() && !selected; ++i) {
    selected = list.Selected(i) && EqualIgnoringCase(list.ItemText(i), text);
  }
  events.DoEvents();
  return selected;
}

void SortList(ListBox& list) {
  std::vector<std::wstring> texts = list.Texts();
  std::sort(texts.begin(), texts.end());
  for (int i = 0; i < list.Count(); ++i) list.SetItemText(i, texts[static_cast<std::size_t>(i)]);
}

}  // namespace tagrix
