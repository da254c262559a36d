// The window of a folder tree, filled branch by branch as the user opens them.
#ifndef TAGRIX_WIN32_WINDOWS_TREE_WINDOW_H
#define TAGRIX_WIN32_WINDOWS_TREE_WINDOW_H

#include <string>

#include "forms/lists.h"
#include "win32/windows/binding.h"

namespace tagrix {

class TreeWindow : public Binding {
 public:
  TreeWindow(const Site& site, TreeBox& tree);
  void Update(Changes changes) override;
  void SetPalette(const Palette& palette) override;
  std::optional<LRESULT> Notify(NMHDR& note) override;

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(Window(), message, wParam, lParam);
  }
  HTREEITEM Next(WPARAM relation, HTREEITEM from) const {
    return reinterpret_cast<HTREEITEM>(Ask(TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(from)));
  }
  HTREEITEM Insert(HTREEITEM parent, std::wstring name);
  std::wstring Name(HTREEITEM item) const;
  std::wstring PathOf(HTREEITEM item) const;
  // Fills a branch that has not been filled yet.
  void Fill(HTREEITEM item);
  HTREEITEM Child(HTREEITEM parent, const std::wstring& name);
  void ShowPath(const std::wstring& path);
  void ShowSelection();  // as soon as there is room

  TreeBox& tree_;
  bool showing_ = false;  // the window is being changed, not the user's choice
};

}  // namespace tagrix

#endif
