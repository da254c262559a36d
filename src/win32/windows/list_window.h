// The window of a list box: a virtual list view that asks the model for the rows in view.
#ifndef TAGRIX_WIN32_WINDOWS_LIST_WINDOW_H
#define TAGRIX_WIN32_WINDOWS_LIST_WINDOW_H

#include <string>
#include <utility>
#include <vector>

#include "forms/lists.h"
#include "win32/windows/binding.h"
#include "win32/windows/list_drag.h"

namespace tagrix {

class ListWindow : public Binding {
 public:
  ListWindow(const Site& site, ListBox& list);
  void Update(Changes changes) override;
  void SetFonts(const Fonts& fonts) override;
  void SetPalette(const Palette& palette) override;
  std::optional<LRESULT> Notify(NMHDR& note) override;
  bool TakeKey(WPARAM key) override;
  std::wstring TooltipHere() override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(Window(), message, wParam, lParam);
  }
  bool IsRow(int row) const { return row >= 0 && row < list_.Count(); }

  void MakeColumns();
  std::vector<int> ColumnWidths() const;  // pixels
  void FitColumns();

  // Selection: the window's rows are marked as the model says, and the other way round.
  void ShowSelection();
  void SetRowState(int row, UINT state, UINT mask);
  std::vector<bool> WindowSelection() const;
  void TakeSelection();

  void ShowCell(LVITEMW& item);
  LRESULT Colour(NMLVCUSTOMDRAW& draw) const;
  void ShowMenu(POINT at);
  int FindText(const NMLVFINDITEMW& wanted) const;
  bool KeyDown(UINT key);

  void Hover(POINT point);
  std::wstring CellText(int row, int column) const;

  ListBox& list_;
  const Fonts* fonts_ = nullptr;
  bool showing_ = false;           // the window is being changed, not the user's choice
  bool selectionTouched_ = false;  // by the user, not yet taken over
  int shownCount_ = 0, shownFocus_ = -1;
  ListDrag drag_;
  std::pair<int, int> hovered_{-1, -1};  // row and column of the tooltip
  std::wstring cell_;                    // the text handed out last
};

}  // namespace tagrix

#endif
