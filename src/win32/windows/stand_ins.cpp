#include "win32/windows/stand_ins.h"

#include <string>

#include "forms/text_controls.h"

namespace tagrix {
namespace {

// Its form draws beneath it: windows that are transparent don't clip what is behind them.
class StandIn : public Binding {
 public:
  StandIn(const Site& site, const Control& control, const wchar_t* kind, DWORD style)
      : Binding(site, control, {kind, style, WS_EX_TRANSPARENT}), control_(control) {
    Subclass();
  }
  void Update(Changes changes) override {
    if (changes.Has(Change::Text)) ShowText(control_.Text());
    if (const auto* progress = dynamic_cast<const ProgressBox*>(&control_)) {
      SendMessageW(Window(), PBM_SETPOS, static_cast<WPARAM>(progress->Percent()), 0);
    }
  }

 protected:
  LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_PAINT:
        ValidateRect(Window(), nullptr);
        return 0;
      case WM_ERASEBKGND:
        return TRUE;
      case WM_NCPAINT:
        return 0;
      case WM_NCHITTEST:
        return HTTRANSPARENT;
      default:
        return Binding::Message(message, wParam, lParam);
    }
  }

 private:
  const Control& control_;
};

class HiddenLabel : public Binding {
 public:
  HiddenLabel(const Site& site, const Control& control, const std::wstring& name)
      : Binding(site, control, {WC_STATICW, SS_LEFT}) {
    ShowText(name);
  }
  void Update(Changes /*changes*/) override {}
};

}  // namespace

bool IsDrawn(const Control& control) {
  return dynamic_cast<const Label*>(&control) != nullptr || dynamic_cast<const Frame*>(&control) != nullptr ||
         dynamic_cast<const ProgressBox*>(&control) != nullptr;
}

std::unique_ptr<Binding> MakeStandIn(const Site& site, Control& control) {
  if (dynamic_cast<const ProgressBox*>(&control) != nullptr) {
    return std::make_unique<StandIn>(site, control, PROGRESS_CLASSW, 0);
  }
  if (dynamic_cast<const Frame*>(&control) == nullptr) {
    return std::make_unique<StandIn>(site, control, WC_STATICW, SS_LEFTNOWORDWRAP);
  }
  if (control.Text().empty()) return nullptr;
  return std::make_unique<StandIn>(site, control, WC_BUTTONW, BS_GROUPBOX);
}

std::unique_ptr<Binding> MakeHiddenLabel(const Site& site, const Control& control, const std::wstring& name) {
  return std::make_unique<HiddenLabel>(site, control, name);
}

}  // namespace tagrix
