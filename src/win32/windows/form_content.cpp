#include "win32/windows/form_content.h"

#include <algorithm>
#include <utility>

#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/next_steps.h"
#include "forms/spoken_names.h"
#include "forms/text_controls.h"
#include "win32/windows/control_maker.h"
#include "win32/windows/stand_ins.h"

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
    : window_(window),
      form_(form),
      fonts_(std::make_unique<Fonts>(dpi)),
      slots_(form.layout, *this),
      focus_(window, slots_, [this](Slot& slot) { return Touch(slot); }),
      tooltips_(window) {
  if (form.firstFocus != nullptr) slots_.Of(*form.firstFocus).wanted = true;
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
  if (awaited) focus_.Want(control);
  slots_.Of(control).changes.Add(change);
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
    if (slot.visible && (slot.drawn || !slot.binding)) Invalidate(slot.rect);
    layout |= ChangesLayout(*slot.control, changes) || (slot.visible && !slot.binding && NeedsWindow(slot));
  }
  return layout;
}

bool FormContent::NeedsWindow(const Slot& slot) const {
  if (described_) return true;
  return !slot.drawn && (slot.wanted || !CanWait(*slot.control));
}

// Made where it belongs and as it is, which is cheaper than to move and disable it afterwards. Later ones are shown
// when what stood in their place has gone.
bool FormContent::MakeWindow(Slot& slot, const Placement& place) {
  if (slot.binding || !place.visible || !NeedsWindow(slot)) return false;
  Site site{window_, WindowPlace(slot, place.rect), (placed_ ? 0UL : WS_VISIBLE) | (place.enabled ? 0UL : WS_DISABLED)};
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

Rect FormContent::WindowPlace(const Slot& slot, const Rect& rect) const {
  Rect place = InsideBox(*slot.control, rect, *fonts_);
  if (IsDropDown(*slot.control)) place.height += Pixels(kDropDownHeight);
  return place;
}

HWND FormContent::Touch(Slot& slot) {
  slot.wanted = true;
  if (!slot.binding && slot.visible) Place();
  return slot.Window();
}

void FormContent::TouchAll() {
  bool missing = false;
  for (Slot& slot : slots_) {
    if (slot.binding || slot.drawn || !slot.visible) continue;
    slot.wanted = missing = true;
  }
  if (missing) Place();
}

bool FormContent::PointerCame(UINT message, WPARAM keys, POINT point) {
  tooltips_.Tell({window_, message, keys, MAKELPARAM(point.x, point.y), 0, {}});
  if (message == WM_MOUSEMOVE && !tooltips_.PointerMoved()) return false;
  Slot* slot = slots_.UsableAt(point);
  const HWND window = slot == nullptr ? nullptr : Touch(*slot);
  if (window == nullptr || message == WM_MOUSEMOVE) return false;
  MapWindowPoints(window_, window, &point, 1);
  SendMessageW(window, message, keys, MAKELPARAM(point.x, point.y));
  return true;
}

void FormContent::OfferTooltip(HWND under) {
  if (!placed_ || (!tooltips_.Made() && !tooltips_.PointerMoved())) return;
  if (!tooltips_.Made()) {
    tooltips_.Make(Pixels(400));
    for (const Slot& slot : slots_) PlaceTooltip(slot);
  }
  const Slot* slot = slots_.Of(under);
  if (slot != nullptr && !slot->drawn) tooltips_.AddWindow(under);
}

// What is drawn has one where it may be cut off.
void FormContent::PlaceTooltip(const Slot& slot) {
  if (!tooltips_.Made() || dynamic_cast<const Label*>(slot.control) == nullptr) return;
  tooltips_.PlaceArea(slots_.Number(slot), slot.visible ? NativeRect(slot.rect) : RECT());
}

void FormContent::Invalidate(const Rect& rect) const {
  const RECT area = NativeRect(rect);
  InvalidateRect(window_, &area, FALSE);
}

// What has to be drawn anew because of the control's new place.
void FormContent::AddChange(RECT& changed, const Slot& slot, const Placement& place) {
  if (slot.binding && !slot.drawn && !slot.boxed) return;
  if (slot.visible == place.visible && slot.enabled == place.enabled && slot.rect == place.rect) return;
  const RECT before = NativeRect(slot.rect), after = NativeRect(place.rect);
  if (slot.visible) UnionRect(&changed, &changed, &before);
  if (place.visible) UnionRect(&changed, &changed, &after);
}

void FormContent::Paint(HDC dc, const RECT& area) {
  FillRect(dc, &area, ground_.Get());
  const HWND focus = GetFocus();
  const bool hidesKeys = Hides(UISF_HIDEACCEL);
  for (const Slot& slot : slots_) {
    const RECT rect = NativeRect(slot.rect);
    RECT common;
    if (!slot.visible || !IntersectRect(&common, &rect, &area)) continue;
    if (slot.binding && !slot.drawn && !slot.boxed) continue;
    DrawnState state{slot.rect, slot.enabled, slot.wraps, hidesKeys};
    state.focused = slot.binding && slot.Window() == focus;
    state.isDefault = slot.control == form_.defaultButton;
    DrawControl(dc, *slot.control, state, {*fonts_, palette_, images_});
  }
}

bool FormContent::Hides(UINT what) const { return (SendMessageW(window_, WM_QUERYUISTATE, 0, 0) & what) != 0; }

std::optional<LRESULT> FormContent::DrawFace(const NMCUSTOMDRAW& draw) {
  const Slot* slot = slots_.Of(draw.hdr.hwndFrom);
  if (slot == nullptr || !HasDrawnFace(*slot->control)) return std::nullopt;
  if (draw.dwDrawStage != CDDS_PREERASE && draw.dwDrawStage != CDDS_PREPAINT) return CDRF_DODEFAULT;
  DrawnState state{{0, 0, slot->rect.width, slot->rect.height}};
  state.enabled = (draw.uItemState & CDIS_DISABLED) == 0;
  state.hidesKeys = Hides(UISF_HIDEACCEL);
  state.hot = (draw.uItemState & CDIS_HOT) != 0;
  state.pressed = (draw.uItemState & CDIS_SELECTED) != 0;
  state.focused = (draw.uItemState & CDIS_FOCUS) != 0 && !Hides(UISF_HIDEFOCUS);
  state.isDefault = slot->control == form_.defaultButton;
  const Buffered buffer(draw.hdc, draw.rc);
  FillRect(buffer.Dc(), &draw.rc, ground_.Get());
  DrawControl(buffer.Dc(), *slot->control, state, {*fonts_, palette_, images_});
  return CDRF_SKIPDEFAULT;
}

void FormContent::FocusChanged(HWND window) const {
  const Slot* slot = slots_.Of(window);
  if (slot != nullptr && slot->boxed) Invalidate(slot->rect);
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
    Slot& slot = slots_.Of(*name.control);
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
  RECT changed{};
  for (const Placement& place : places) {
    Slot& slot = slots_.Of(*place.control);
    AddChange(changed, slot, place);
    made |= MakeWindow(slot, place);
  }
  if (!IsRectEmpty(&changed)) InvalidateRect(window_, &changed, FALSE);
  if (made && described_) MakeHiddenLabels();
  // The windows made first stand in their order; later ones have to be put among them.
  const bool reorder = std::exchange(placed_, true) && made;
  HDWP moves = BeginDeferWindowPos(static_cast<int>(places.size()));
  HWND after = HWND_TOP;
  for (const Placement& place : places) {
    Slot& slot = slots_.Of(*place.control);
    if (slot.hiddenLabel && reorder) {
      moves = DeferWindowPos(moves, slot.hiddenLabel->Window(), after, 0, 0, 0, 0,
                             SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      after = slot.hiddenLabel->Window();
    }
    if (slot.binding) {
      moves = Move(moves, slot, place, reorder ? &after : nullptr);
      after = slot.binding->Window();
    } else {
      slot.rect = place.rect;
      slot.visible = place.visible;
      slot.enabled = place.enabled;
    }
    PlaceTooltip(slot);
  }
  // Disabled before they appear.
  const HWND lost = Enable(places);
  EndDeferWindowPos(moves);
  if (lost != nullptr) focus_.Replace(lost);
  focus_.GiveBack();
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
  slot.rect = place.rect;
  slot.visible = visible;
  const Rect at = WindowPlace(slot, place.rect);
  return DeferWindowPos(moves, slot.binding->Window(), after == nullptr ? nullptr : *after, at.x, at.y, at.width,
                        at.height, flags);
}

// Enables and disables; returns the window that had the keyboard and may not keep it, or null.
HWND FormContent::Enable(const std::vector<Placement>& places) {
  bool focusLost = false;
  const HWND focus = GetFocus();
  for (const Placement& place : places) {
    Slot& slot = slots_.Of(*place.control);
    if (!slot.binding) continue;
    const HWND window = slot.binding->Window();
    const bool holdsFocus = focus != nullptr && (focus == window || IsChild(window, focus));
    focusLost |= holdsFocus && !(place.visible && place.enabled);
    if (slot.enabled != place.enabled) EnableWindow(window, place.enabled);
    slot.enabled = place.enabled;
  }
  return focusLost ? focus : nullptr;
}

void FormContent::Press(Button& button) {
  const Slot& slot = slots_.Of(button);
  if (slot.Usable()) button.Click();
}

Binding* FormContent::BindingOf(HWND window) const {
  const Slot* slot = slots_.Of(window);
  return slot == nullptr ? nullptr : slot->binding.get();
}

HWND FormContent::Find(const std::string& name) {
  Slot* slot = slots_.Named(name);
  if (slot == nullptr) return nullptr;
  if (slot->drawn) Describe();
  return Touch(*slot);
}

std::wstring FormContent::TooltipOf(UINT_PTR id) const {
  const Slot* slot = slots_.Numbered(id);
  if (slot == nullptr) slot = slots_.Of(reinterpret_cast<HWND>(id));
  if (slot == nullptr || !slot->visible) return {};
  if (!slot->control->Tooltip().empty()) return slot->control->Tooltip();
  if (slot->drawn) return CutOffText(*slot->control, {slot->rect.width, slot->rect.height}, *fonts_);
  return slot->binding ? slot->binding->TooltipHere() : std::wstring();
}

void FormContent::Repaint() const {
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormContent::ForwardToAll(UINT message) const {
  for (const Slot& slot : slots_) {
    if (slot.binding) SendMessageW(slot.binding->Window(), message, 0, 0);
  }
}

}  // namespace tagrix
