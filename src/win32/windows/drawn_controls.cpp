#include "win32/windows/drawn_controls.h"

#include <string>

#include "forms/captions.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

RECT Pixels(const Rect& rect) { return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height}; }

void Fill(HDC dc, RECT area, COLORREF colour) {
  const UniqueBrush brush(CreateSolidBrush(colour));
  FillRect(dc, &area, brush.Get());
}

void Write(HDC dc, const std::wstring& text, RECT area, UINT format) {
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format | DT_EXPANDTABS);
}

class Drawing : public ControlVisitor {
 public:
  Drawing(HDC dc, const DrawnState& state, const Fonts& fonts, const Palette& palette)
      : dc_(dc), state_(state), fonts_(fonts), palette_(palette) {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, state.enabled ? palette.text : palette.dimText);
  }

  void Visit(Label& label) override {
    const Selected font(dc_, label.Style() == LabelStyle::Heading ? fonts_.Heading() : fonts_.Normal());
    UINT format = label.Style() == LabelStyle::Literal ? DT_NOPREFIX : Keys();
    if (label.Style() == LabelStyle::Path) {
      format |= DT_PATH_ELLIPSIS | DT_SINGLELINE;
    } else if (state_.wraps) {
      format |= DT_WORDBREAK | DT_EDITCONTROL;
    } else if (label.Style() == LabelStyle::Literal && label.Text().find(L'\n') == std::wstring::npos) {
      format |= DT_END_ELLIPSIS | DT_SINGLELINE;
    }
    Write(dc_, label.Text(), Pixels(state_.rect), format);
  }
  void Visit(Frame& frame) override {
    if (frame.Text().empty()) return;
    const Size title = fonts_.Measure(WithoutAccessKeys(frame.Text()), 0, false);
    RECT border = Pixels(state_.rect);
    border.top += title.height / 2;
    const UniqueBrush line(
        CreateSolidBrush(palette_.contrast ? palette_.line : Mix(palette_.line, palette_.ground, 35)));
    FrameRect(dc_, &border, line.Get());
    const int inset = fonts_.Pixels(8), gap = fonts_.Pixels(3);
    const Rect text{state_.rect.x + inset, state_.rect.y, title.width, title.height};
    RECT behind = Pixels(text);
    InflateRect(&behind, gap, 0);
    Fill(dc_, behind, palette_.ground);
    const Selected font(dc_, fonts_.Normal());
    Write(dc_, frame.Text(), Pixels(text), DT_SINGLELINE | DT_NOCLIP | Keys());
  }
  void Visit(ProgressBox& progress) override {
    RECT area = Pixels(state_.rect);
    Fill(dc_, area, palette_.line);
    InflateRect(&area, -1, -1);
    Fill(dc_, area, palette_.field);
    RECT done = area;
    done.right = done.left + MulDiv(done.right - done.left, progress.Percent(), 100);
    Fill(dc_, done, palette_.accent);
    if (progress.Percent() == 0) return;
    // Each half of the figure in the colour that stands out there.
    const std::wstring figure = std::to_wstring(progress.Percent()) + L" %";
    const Selected font(dc_, fonts_.Normal());
    for (const bool inside : {false, true}) {
      const int saved = SaveDC(dc_);
      if (inside) {
        IntersectClipRect(dc_, done.left, done.top, done.right, done.bottom);
      } else {
        ExcludeClipRect(dc_, done.left, done.top, done.right, done.bottom);
      }
      SetTextColor(dc_, inside ? palette_.onAccent : palette_.text);
      Write(dc_, figure, area, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
      RestoreDC(dc_, saved);
    }
  }
  void Visit(Button&) override {}
  void Visit(CheckBox&) override {}
  void Visit(OptionButton&) override {}
  void Visit(TextBox&) override {}
  void Visit(ListBox&) override {}
  void Visit(ComboBox&) override {}
  void Visit(TreeBox&) override {}
  void Visit(Picture&) override {}

 private:
  UINT Keys() const { return state_.hidesKeys ? DT_HIDEPREFIX : 0; }

  HDC dc_;
  const DrawnState& state_;
  const Fonts& fonts_;
  const Palette& palette_;
};

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

void DrawControl(HDC dc, Control& control, const DrawnState& state, const Fonts& fonts, const Palette& palette) {
  Drawing drawing(dc, state, fonts, palette);
  control.Accept(drawing);
}

std::wstring CutOffText(const Control& control, Size room, const Fonts& fonts) {
  const auto* label = dynamic_cast<const Label*>(&control);
  const bool shortens =
      label != nullptr && (label->Style() == LabelStyle::Path || label->Style() == LabelStyle::Literal);
  return shortens && fonts.Measure(label->Text(), 0, false).width > room.width ? WithoutAccessKeys(label->Text())
                                                                               : std::wstring();
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
