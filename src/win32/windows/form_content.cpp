#include "win32/windows/form_content.h"

#include <algorithm>
#include <utility>

#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/next_steps.h"
#include "forms/spoken_names.h"
#include "forms/text_controls.h"
#include "win32/windows/control_maker.h"
#include "win32/windows/drawn_controls.h"

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
    slots_.back().drawn = IsDrawn(*node.control);
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

void FormContent::SetPalette() {
  palette_ = Palette::Current();
  ground_.Reset(CreateSolidBrush(palette_.ground));
  field_.Reset(CreateSolidBrush(palette_.field));
  for (const Slot& slot : slots_) {
    if (slot.binding) slot.binding->SetPalette(palette_);
  }
}

void FormContent::Changed(Control& control, Change change) {
  // Who is given the keyboard is waited for by the user, so it doesn't wait for its turn.
  const bool awaited = change == Change::Focus;
  if (awaited) wanted_ = &control;
  SlotOf(control).changes.Add(change);
  if (std::exchange(flushPending_, true) && !awaited) return;
  const ULONGLONG since = GetTickCount64() - flushed_;
  if (awaited || since >= kFlushEvery) {
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
    if (slot.binding) slot.binding->Update(changes);
    if (slot.drawn && slot.visible) Invalidate(slot.rect);
    layout |= ChangesLayout(*slot.control, changes);
  }
  return layout;
}

// Made where it belongs and as it is, which is cheaper than to move and disable it afterwards. Later ones are shown
// when what stood in their place has gone.
bool FormContent::MakeWindow(Slot& slot, const Placement& place) {
  if (slot.binding || !place.visible || (slot.drawn && !described_)) return false;
  Site site{window_, place.rect, (placed_ ? 0UL : WS_VISIBLE) | (place.enabled ? 0UL : WS_DISABLED)};
  if (IsDropDown(*slot.control)) site.rect.height += Pixels(kDropDownHeight);
  slot.binding = slot.drawn ? MakeStandIn(site, *slot.control) : MakeBinding(site, form_, *slot.control);
  if (!slot.binding) return false;
  slot.rect = place.rect;
  slot.visible = !placed_;
  slot.enabled = place.enabled;
  slot.binding->SetPalette(palette_);
  slot.binding->SetFonts(*fonts_);
  slot.binding->Update(Changes::All());
  return true;
}

bool FormContent::PointerMoved() {
  const DWORD now = GetMessagePos();
  if (!firstPointer_) firstPointer_ = now;
  return *firstPointer_ != now;
}

// A window gets its tool when the pointer first comes to it; what is drawn gets one for each label that may be cut off,
// whose id is the number of its slot.
void FormContent::OfferTooltip(HWND under) {
  if (!placed_ || (tooltips_ == nullptr && !PointerMoved())) return;
  if (tooltips_ == nullptr) {
    tooltips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0,
                                0, 0, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(tooltips_, TTM_SETMAXTIPWIDTH, 0, Pixels(400));
    for (Slot& slot : slots_) {
      if (dynamic_cast<const Label*>(slot.control) != nullptr) ShowTool(slot);
    }
  }
  if (const Slot* slot = SlotOf(under); slot != nullptr && !slot->hasTooltip) ShowTool(slots_[SlotNumber(*slot)]);
}

void FormContent::ShowTool(Slot& slot) {
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.hwnd = window_;
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  if (slot.drawn) {
    tool.uId = SlotNumber(slot);
    if (slot.visible) {
      tool.rect = {slot.rect.x, slot.rect.y, slot.rect.x + slot.rect.width, slot.rect.y + slot.rect.height};
    }
  } else {
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.uId = reinterpret_cast<UINT_PTR>(slot.binding->Window());
  }
  const bool known = std::exchange(slot.hasTooltip, true);
  SendMessageW(tooltips_, known ? TTM_NEWTOOLRECTW : TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void FormContent::TellTooltips(const MSG& message) const {
  if (tooltips_ != nullptr) SendMessageW(tooltips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

void FormContent::Invalidate(const Rect& rect) const {
  const RECT area{rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
  InvalidateRect(window_, &area, FALSE);
}

void FormContent::RedrawWhereDrawn(const Slot& slot, const Placement& place) const {
  if (slot.visible == place.visible && slot.enabled == place.enabled && slot.rect == place.rect) return;
  if (slot.visible) Invalidate(slot.rect);
  if (place.visible) Invalidate(place.rect);
}

void FormContent::Paint(HDC dc, const RECT& area) {
  FillRect(dc, &area, ground_.Get());
  const bool hidesKeys = (SendMessageW(window_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
  for (const Slot& slot : slots_) {
    const RECT rect{slot.rect.x, slot.rect.y, slot.rect.x + slot.rect.width, slot.rect.y + slot.rect.height};
    RECT common;
    if (!slot.drawn || !slot.visible || !IntersectRect(&common, &rect, &area)) continue;
    DrawControl(dc, *slot.control, {slot.rect, slot.enabled, slot.wraps, hidesKeys}, *fonts_, palette_);
  }
}

HBRUSH FormContent::ColourField(HDC dc) const {
  if (!palette_.dark) return nullptr;
  SetTextColor(dc, palette_.text);
  SetBkColor(dc, palette_.field);
  return field_.Get();
}

HBRUSH FormContent::ColourOnGround(HDC dc) const {
  if (!palette_.dark) return nullptr;
  SetTextColor(dc, palette_.text);
  SetBkColor(dc, palette_.ground);
  return ground_.Get();
}

void FormContent::Describe() {
  if (!placed_ || std::exchange(described_, true)) return;
  Place();
}

void FormContent::MakeHiddenLabels() {
  for (const SpokenName& name : SpokenNames(form_.layout)) {
    Slot& slot = SlotOf(*name.control);
    const bool captioned = !slot.control->Text().empty() && dynamic_cast<const TextBox*>(slot.control) == nullptr &&
                           dynamic_cast<const ComboBox*>(slot.control) == nullptr;
    if (!slot.binding || slot.hiddenLabel || name.fromLabel || captioned || name.name.empty()) continue;
    slot.hiddenLabel = MakeHiddenLabel({window_, {}, 0}, *slot.control, name.name);
  }
}

void FormContent::Place() {
  RECT client;
  GetClientRect(window_, &client);
  std::vector<Placement> places = Arrange(form_.layout, {0, 0, client.right, client.bottom}, fonts_->Dpi(), *fonts_);
  // Frames stand behind everything, the inner before the outer.
  std::stable_partition(places.begin(), places.end(), [](const Placement& p) { return !IsFrame(*p.control); });
  std::reverse(std::find_if(places.begin(), places.end(), [](const Placement& p) { return IsFrame(*p.control); }),
               places.end());
  MarkNextSteps(form_, places);
  bool made = false;
  for (const Placement& place : places) {
    Slot& slot = SlotOf(*place.control);
    if (slot.drawn) RedrawWhereDrawn(slot, place);
    made |= MakeWindow(slot, place);
  }
  if (made && described_) MakeHiddenLabels();
  // The windows made first stand in their order; later ones have to be put among them.
  const bool reorder = std::exchange(placed_, true) && made;
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places.size()));
  HWND after = HWND_TOP;
  for (const Placement& place : places) {
    Slot& slot = SlotOf(*place.control);
    if (slot.hiddenLabel && reorder) {
      moves = DeferWindowPos(moves, slot.hiddenLabel->Window(), after, 0, 0, 0, 0,
                             SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      after = slot.hiddenLabel->Window();
    }
    if (slot.binding) {
      moves = Move(moves, slot, place, reorder ? &after : nullptr);
      after = slot.binding->Window();
    } else if (slot.drawn) {
      slot.rect = place.rect;
      slot.visible = place.visible;
      slot.enabled = place.enabled;
    }
    if (slot.drawn && slot.hasTooltip) ShowTool(slot);
  }
  // Disabled before they appear.
  const HWND lost = Enable(places);
  EndDeferWindowPos(moves);
  if (lost != nullptr) ReplaceFocus(lost);
  GiveFocusBack();
}

// Moves what isn't where it belongs; `after` gives the place in the tab order, null leaves it.
HDWP FormContent::Move(HDWP moves, Slot& slot, const Placement& place, const HWND* after) {
  const bool visible = place.visible;
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

void FormContent::GiveWantedFocus() {
  if (wanted_ == nullptr) return;
  const Slot& slot = SlotOf(*std::exchange(wanted_, nullptr));
  if (slot.visible && slot.enabled && GetActiveWindow() == window_) SetFocusTo(slot.control);
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

bool FormContent::FollowAccessKey(wchar_t key) {
  const auto takesKeyboard = [](const Slot& slot) {
    return slot.binding && slot.visible && slot.enabled &&
           (GetWindowLongPtrW(slot.binding->Window(), GWL_STYLE) & WS_TABSTOP) != 0;
  };
  for (auto slot = slots_.begin(); slot != slots_.end(); ++slot) {
    const auto* label = dynamic_cast<const Label*>(slot->control);
    const bool caption = label != nullptr ? label->Style() == LabelStyle::Caption : IsFrame(*slot->control);
    if (!caption || !slot->visible || !slot->enabled || AccessKeyOf(slot->control->Text()) != key) continue;
    const auto named = std::find_if(slot, slots_.end(), takesKeyboard);
    if (named == slots_.end()) continue;
    SetFocusTo(named->control);
    return true;
  }
  return false;
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

HWND FormContent::Find(const std::string& name) {
  const auto found = std::find_if(slots_.begin(), slots_.end(),
                                  [&](const Slot& slot) { return slot.control->Name() == name && slot.visible; });
  if (found == slots_.end()) return nullptr;
  if (found->drawn) Describe();
  return found->binding ? found->binding->Window() : nullptr;
}

std::wstring FormContent::TooltipOf(UINT_PTR id) const {
  const Slot* slot = id < slots_.size() ? &slots_[id] : SlotOf(reinterpret_cast<HWND>(id));
  if (slot == nullptr || !slot->visible) return {};
  if (!slot->control->Tooltip().empty()) return slot->control->Tooltip();
  if (slot->drawn) return CutOffText(*slot->control, {slot->rect.width, slot->rect.height}, *fonts_);
  return slot->binding ? slot->binding->TooltipHere() : std::wstring();
}

void FormContent::HideTooltip() const {
  if (tooltips_ != nullptr) SendMessageW(tooltips_, TTM_POP, 0, 0);
}

void FormContent::Repaint() const {
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  // Few have a border, and to ask the others for theirs takes time.
  for (const Slot& slot : slots_) {
    if (!slot.binding || (GetWindowLongPtrW(slot.binding->Window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE) == 0) continue;
    RedrawWindow(slot.binding->Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
  }
}

void FormContent::ForwardToAll(UINT message) const {
  for (const Slot& slot : slots_) {
    if (slot.binding) SendMessageW(slot.binding->Window(), message, 0, 0);
  }
}

}  // namespace tagrix
