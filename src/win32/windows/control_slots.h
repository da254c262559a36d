// What a form knows of each of its controls: the window it has, if any, and where and how it is shown.
#ifndef TAGRIX_WIN32_WINDOWS_CONTROL_SLOTS_H
#define TAGRIX_WIN32_WINDOWS_CONTROL_SLOTS_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/layout.h"
#include "win32/windows/binding.h"

namespace tagrix {

struct Slot {
  HWND Window() const { return binding ? binding->Window() : nullptr; }
  bool Usable() const { return visible && enabled; }

  Control* control;
  bool wraps;           // a label whose text may take several lines
  bool drawn;           // the form draws it, whether or not it has a window
  bool boxed;           // the form draws a box around its window
  bool wanted = false;  // the user has come to it
  Changes changes{};
  std::unique_ptr<Binding> binding{}, hiddenLabel{};
  Rect rect{};  // in its form, pixels
  bool visible = false, enabled = true;
};

class ControlSlots {
 public:
  // The controls of the layout, in its order; they are observed as long as this lives.
  ControlSlots(const Node& layout, ControlObserver& observer);
  ~ControlSlots();
  ControlSlots(const ControlSlots&) = delete;
  ControlSlots& operator=(const ControlSlots&) = delete;

  auto begin() { return slots_.begin(); }
  auto end() { return slots_.end(); }
  auto begin() const { return slots_.begin(); }
  auto end() const { return slots_.end(); }
  std::size_t Number(const Slot& slot) const { return static_cast<std::size_t>(&slot - slots_.data()); }
  // Null when it is none.
  const Slot* Numbered(std::size_t number) const { return number < slots_.size() ? &slots_[number] : nullptr; }

  Slot& Of(const Control& control) { return slots_[index_.at(&control)]; }
  // Null for windows of others, and for the parts of combo boxes.
  const Slot* Of(HWND window) const;
  // Of those that can be seen: the one of this name, the first that Tab stops at, the one that the user can use there.
  // Null when there is none.
  Slot* Named(const std::string& name);
  Slot* FirstStop();
  Slot* UsableAt(POINT point);
  // The control whose label, or the first within the frame whose title, has this access key. Null when there is none.
  Slot* WithAccessKey(wchar_t key);

 private:
  void Collect(const Node& node, ControlObserver& observer);

  std::vector<Slot> slots_;
  std::unordered_map<const Control*, std::size_t> index_;
};

}  // namespace tagrix

#endif
