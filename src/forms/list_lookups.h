// Look-ups in the entries of list and combo boxes, and their order.
#ifndef TAGRIX_FORMS_LIST_LOOKUPS_H
#define TAGRIX_FORMS_LIST_LOOKUPS_H

#include <string_view>

#include "forms/lists.h"
#include "platform/event_loop.h"

namespace tagrix {

// Whether some entry equals the trimmed text, letter case ignored.
bool ListContains(const ListBox& list, std::wstring_view text);
bool ListContains(const ComboBox& combo, std::wstring_view text);
// Whether some entry begins with the trimmed text, letter case ignored.
bool ListHasPrefix(const ListBox& list, std::wstring_view text);
// Whether an entry equal to the text (letter case ignored) is selected; lets pending events run.
bool SelectedInList(EventLoop& events, const ListBox& list, std::wstring_view text);
// Sorts the texts by character code; the item values stay where they are.
void SortList(ListBox& list);

}  // namespace tagrix

#endif
