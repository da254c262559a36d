#include "win32/windows/form_content.h"

#include <algorithm>
#include <utility>

#include "forms/lists.h"
#include "forms/text_controls.h"
#include "win32/windows/control_maker.h"

namespace tagrix {
namespace {

constexpr ULONGLONG kFlushEvery = 16;  // milliseconds
constexpr int kDropDownHeight = 260;   // units; the windows of combo boxes are as high as they are when open

// Whether a change may alter the room that the control takes.
bool ChangesLayout(const Control& control, Changes changes) {
  if (changes.Has(Change::Visible) || changes.Has(Change::Enabled)) return true;
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    return changes.Has(Change::Text) && label->Style() != LabelStyle::Path;
  }
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
    return changes.Has(Change::Items) && !combo->Editable();
  }
  if (dynamic_cast<const TextBox*>(&control) != nullptr) return false;
  return changes.Has(Change::Text) || (changes.Has(Change::Look) && dynamic_cast<const Button*>(&control) != nullptr);
}

bool IsDropDown(const Control& control) { return dynamic_cast<const ComboBox*>(&control) != nullptr; }
bool IsFrame(const Control& control) { return dynamic_cast<const Frame*>(&control) != nullptr; }

}  // namespace

FormContent::FormContent(HWND window, Form& form, int dpi)
    : window_(window), form_(form), fonts_(std::make_unique<Fonts>(dpi)) {
  Collect(form.layout);
}

FormContent::~FormContent() {
  for (const Slot& slot : slots_) slot.control->Observe(nullptr);
  if (tooltips_ != nullptr) DestroyWindow(tooltips_);
}

void FormContent::Collect(const Node& node) {
  if (node.control != nullptr) {
    index_.emplace(node.control, slots_.size());
    slots_.emplace_back();
    slots_.back().control = node.control;
    slots_.back().wraps = node.wrapAt > 0;
    node.control->Observe(this);
  }
  for (const Node& child : node.children) Collect(child);
}

void FormContent::SetFonts(int dpi) {
  auto fonts = std::make_unique<Fonts>(dpi);
  for (const Slot& slot : slots_) {
    if (slot.binding) slot.binding->SetFonts(*fonts);
  }
  fonts_ = std::move(fonts);
}

void FormContent::Changed(Control& control, Change change) {
  SlotOf(control).changes.Add(change);
  if (std::exchange(flushPending_, true)) return;
  const ULONGLONG since = GetTickCount64() - flushed_;
  if (since >= kFlushEvery) {
    PostMessageW(window_, kFlush, 0, 0);
  } else {
    SetTimer(window_, kFlush, static_cast<UINT>(kFlushEvery - since), nullptr);
  }
}

bool FormContent::Flush() {
  KillTimer(window_, kFlush);
  flushPending_ = false;
  flushed_ = GetTickCount64();
  bool layout = false;
  for (Slot& slot : slots_) {
    const Changes changes = std::exchange(slot.changes, {});
    if (!changes.Any()) continue;
    if (slot.binding) {
      slot.binding->Update(changes);
      OfferTooltip(slot);
    }
    layout |= ChangesLayout(*slot.control, changes);
  }
  return layout;
}

// Made where it belongs and as it is, which is cheaper than to move and disable it afterwards. Later ones are shown
// when what stood in their place has gone.
bool FormContent::MakeWindow(Slot& slot, const Placement& place) {
  if (slot.binding || !place.visible) return false;
  Site site{window_, place.rect, (placed_ ? 0UL : WS_VISIBLE) | (place.enabled ? 0UL : WS_DISABLED)};
  if (IsDropDown(*slot.control)) site.rect.height += Pixels(kDropDownHeight);
  slot.binding = MakeBinding(site, form_, *slot.control, slot.wraps);
  if (!slot.binding) return false;
  slot.rect = place.rect;
  slot.visible = !placed_;
  slot.enabled = place.enabled;
  slot.binding->SetFonts(*fonts_);
  slot.binding->Update(Changes::All());
  OfferTooltip(slot);
  return true;
}

void FormContent::OfferTooltip(Slot& slot) {
  const auto* list = dynamic_cast<const ListBox*>(slot.control);
  if (slot.hasTooltip || (slot.control->Tooltip().empty() && (list == nullptr || !list->itemTooltips))) return;
  if (tooltips_ == nullptr) {
    tooltips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0,
                                0, 0, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(tooltips_, TTM_SETMAXTIPWIDTH, 0, Pixels(400));
  }
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(slot.binding->Window());
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  SendMessageW(tooltips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  slot.hasTooltip = true;
}

void FormContent::Place() {
  RECT client;
  GetClientRect(window_, &client);
  std::vector<Placement> places = Arrange(form_.layout, {0, 0, client.right, client.bottom}, fonts_->Dpi(), *fonts_);
  // Frames stand behind everything, the inner before the outer.
  std::stable_partition(places.begin(), places.end(), [](const Placement& p) { return !IsFrame(*p.control); });
  std::reverse(std::find_if(places.begin(), places.end(), [](const Placement& p) { return IsFrame(*p.control); }),
               places.end());
  bool made = false;
  for (const Placement& place : places) made |= MakeWindow(SlotOf(*place.control), place);
  // The windows made first stand in their order; later ones have to be put among them.
  const bool reorder = std::exchange(placed_, true) && made;
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places.size()));
  HWND after = HWND_TOP;
  for (const Placement& place : places) {
    Slot& slot = SlotOf(*place.control);
    if (!slot.binding) continue;
    moves = Move(moves, slot, place, reorder ? &after : nullptr);
    after = slot.binding->Window();
  }
  // Disabled before they appear.
  const HWND lost = Enable(places);
  EndDeferWindowPos(moves);
  if (lost != nullptr) ReplaceFocus(lost);
  GiveFocusBack();
}

// Moves what isn't where it belongs; `after` gives the place in the tab order, null leaves it.
HDWP FormContent::Move(HDWP moves, Slot& slot, const Placement& place, const HWND* after) {
  const bool visible = place.visible && !(IsFrame(*slot.control) && slot.control->Text().empty());
  const bool resized = place.rect.width != slot.rect.width || place.rect.height != slot.rect.height;
  const bool moved = resized || place.rect != slot.rect;
  const bool shown = visible != slot.visible;
  if (!moved && !shown && after == nullptr) return moves;
  UINT flags = SWP_NOACTIVATE;
  if (after == nullptr) flags |= SWP_NOZORDER;
  if (!moved) flags |= SWP_NOMOVE | SWP_NOSIZE;
  if (resized) flags |= SWP_NOCOPYBITS;
  if (shown) flags |= visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
  const int height = place.rect.height + (IsDropDown(*slot.control) ? Pixels(kDropDownHeight) : 0);
  slot.rect = place.rect;
  slot.visible = visible;
  return DeferWindowPos(moves, slot.binding->Window(), after == nullptr ? nullptr : *after, place.rect.x, place.rect.y,
                        place.rect.width, height, flags);
}

// Enables and disables; returns the window that had the keyboard and may not keep it, or null.
HWND FormContent::Enable(const std::vector<Placement>& places) {
  bool focusLost = false;
  const HWND focus = GetFocus();
  for (const Placement& place : places) {
    Slot& slot = SlotOf(*place.control);
    if (!slot.binding) continue;
    const HWND window = slot.binding->Window();
    const bool holdsFocus = focus != nullptr && (focus == window || IsChild(window, focus));
    focusLost |= holdsFocus && !(place.visible && place.enabled);
    if (slot.enabled != place.enabled) EnableWindow(window, place.enabled);
    slot.enabled = place.enabled;
  }
  return focusLost ? focus : nullptr;
}

void FormContent::ReplaceFocus(HWND lost) {
  SetFocusTo(nullptr);
  if (lostFocus_ == nullptr || lost != standIn_) lostFocus_ = lost;
  standIn_ = GetFocus();
}

void FormContent::GiveFocusBack() {
  const HWND focus = GetFocus();
  if (focus != standIn_ && IsChild(window_, focus)) lostFocus_ = nullptr;  // the user has gone on
  if (focus != standIn_ || lostFocus_ == nullptr || !IsWindowEnabled(lostFocus_) || !IsWindowVisible(lostFocus_))
    return;
  SetFocus(std::exchange(lostFocus_, nullptr));
}

void FormContent::SetFocusTo(const Control* control) {
  const Binding* binding = control == nullptr ? nullptr : SlotOf(*control).binding.get();
  const HWND target = binding != nullptr ? binding->Window() : GetNextDlgTabItem(window_, nullptr, FALSE);
  SetFocus(target != nullptr ? target : window_);
  const Slot* slot = SlotOf(target);
  if (slot != nullptr && dynamic_cast<const TextBox*>(slot->control) != nullptr) {
    SendMessageW(target, EM_SETSEL, 0, -1);
  }
}

void FormContent::Press(Button& button) {
  const Slot& slot = SlotOf(button);
  if (slot.visible && slot.enabled) button.Click();
}

const FormContent::Slot* FormContent::SlotOf(HWND window) const {
  const auto found = std::find_if(slots_.begin(), slots_.end(), [window](const Slot& slot) {
    return slot.binding && slot.binding->Window() == window;
  });
  return found == slots_.end() ? nullptr : &*found;
}

Binding* FormContent::BindingOf(HWND window) const {
  const Slot* slot = SlotOf(window);
  return slot == nullptr ? nullptr : slot->binding.get();
}

std::wstring FormContent::TooltipOf(HWND window) const {
  const Slot* slot = SlotOf(window);
  if (slot == nullptr) return {};
  return slot->control->Tooltip().empty() ? slot->binding->TooltipHere() : slot->control->Tooltip();
}

void FormContent::HideTooltip() const {
  if (tooltips_ != nullptr) SendMessageW(tooltips_, TTM_POP, 0, 0);
}

void FormContent::ForwardToAll(UINT message) const {
  for (const Slot& slot : slots_) {
    if (slot.binding) SendMessageW(slot.binding->Window(), message, 0, 0);
  }
}

}  // namespace tagrix
