// Rows of a list that the pointer drags to another place. Escape, and whatever takes the pointer away, ends it.
#ifndef TAGRIX_WIN32_WINDOWS_LIST_DRAG_H
#define TAGRIX_WIN32_WINDOWS_LIST_DRAG_H

#include <windows.h>
// Needs windows.h before it.
#include <commctrl.h>

#include "forms/lists.h"

namespace tagrix {

// Which cell of a list's window is there; a row of -1: none.
LVHITTESTINFO HitAt(HWND window, POINT point);

class ListDrag {
 public:
  ListDrag(HWND window, ListBox& list) : window_(window), list_(list) {}

  void Begin(int row);
  // Ends it; false when there is none.
  bool Cancel();
  bool Drags(int row) const { return row == row_; }
  // Does what a message of the window means for it; true when it means nothing else.
  bool Take(UINT message, WPARAM wParam);

 private:
  bool Runs() const { return row_ >= 0; }
  void GoOn();
  void End();

  HWND window_;
  ListBox& list_;
  int row_ = -1;
};

}  // namespace tagrix

#endif
