#include "win32/windows/control_slots.h"

#include <algorithm>

#include "forms/buttons.h"
#include "forms/captions.h"
#include "forms/picture.h"
#include "forms/text_controls.h"
#include "win32/windows/control_drawing.h"
#include "win32/windows/gdi.h"
#include "win32/windows/stand_ins.h"

namespace tagrix {
namespace {

bool TakesKeyboard(const Slot& slot) {
  if (slot.drawn || !slot.Usable() || dynamic_cast<const Picture*>(slot.control) != nullptr) return false;
  const auto* option = dynamic_cast<const OptionButton*>(slot.control);
  return option == nullptr || option->FirstOfGroup();
}

template <typename Iterator>
Slot* Found(Iterator found, Iterator end) {
  return found == end ? nullptr : &*found;
}

}  // namespace

ControlSlots::ControlSlots(const Node& layout, ControlObserver& observer) { Collect(layout, observer); }

ControlSlots::~ControlSlots() {
  for (const Slot& slot : slots_) slot.control->Observe(nullptr);
}

void ControlSlots::Collect(const Node& node, ControlObserver& observer) {
  if (node.control != nullptr) {
    index_.emplace(node.control, slots_.size());
    slots_.push_back({node.control, node.wrapAt > 0, IsDrawn(*node.control), HasBox(*node.control)});
    node.control->Observe(&observer);
  }
  for (const Node& child : node.children) Collect(child, observer);
}

const Slot* ControlSlots::Of(HWND window) const {
  const auto found = std::find_if(slots_.begin(), slots_.end(),
                                  [window](const Slot& slot) { return slot.binding && slot.Window() == window; });
  return found == slots_.end() ? nullptr : &*found;
}

Slot* ControlSlots::Named(const std::string& name) {
  return Found(std::find_if(slots_.begin(), slots_.end(),
                            [&](const Slot& slot) { return slot.control->Name() == name && slot.visible; }),
               slots_.end());
}

Slot* ControlSlots::FirstStop() {
  return Found(std::find_if(slots_.begin(), slots_.end(), TakesKeyboard), slots_.end());
}

Slot* ControlSlots::UsableAt(POINT point) {
  const auto here = [point](const Slot& slot) {
    const RECT area = NativeRect(slot.rect);
    return !slot.drawn && slot.Usable() && PtInRect(&area, point);
  };
  return Found(std::find_if(slots_.begin(), slots_.end(), here), slots_.end());
}

Slot* ControlSlots::WithAccessKey(wchar_t key) {
  for (auto slot = slots_.begin(); slot != slots_.end(); ++slot) {
    const auto* label = dynamic_cast<const Label*>(slot->control);
    const bool caption =
        label != nullptr ? label->Style() == LabelStyle::Caption : dynamic_cast<const Frame*>(slot->control) != nullptr;
    if (caption && slot->Usable() && AccessKeyOf(slot->control->Text()) == key) {
      if (Slot* named = Found(std::find_if(slot, slots_.end(), TakesKeyboard), slots_.end())) return named;
    }
  }
  return nullptr;
}

}  // namespace tagrix
