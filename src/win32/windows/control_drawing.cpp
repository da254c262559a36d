#include "win32/windows/control_drawing.h"

#include <algorithm>
#include <string>

#include "forms/buttons.h"
#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

void Fill(HDC dc, RECT area, COLORREF colour) {
  const UniqueBrush brush(CreateSolidBrush(colour));
  FillRect(dc, &area, brush.Get());
}

// Returns what is within the border.
RECT FillBox(HDC dc, RECT area, COLORREF border, COLORREF inside) {
  Fill(dc, area, border);
  InflateRect(&area, -1, -1);
  Fill(dc, area, inside);
  return area;
}

void Write(HDC dc, const std::wstring& text, RECT area, UINT format) {
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, format);
}

class Drawing : public ControlVisitor {
 public:
  Drawing(HDC dc, const DrawnState& state, const Look& look)
      : dc_(dc),
        state_(state),
        fonts_(look.fonts),
        colours_(look.palette),
        images_(look.images),
        area_(NativeRect(state.rect)),
        font_(dc, look.fonts.Normal()) {
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, Ink());
  }

  void Visit(Label& label) override {
    UINT format = DT_EXPANDTABS | (label.Style() == LabelStyle::Literal ? DT_NOPREFIX : Keys());
    if (label.Style() == LabelStyle::Path) {
      format |= DT_PATH_ELLIPSIS | DT_SINGLELINE;
    } else if (state_.wraps) {
      format |= DT_WORDBREAK | DT_EDITCONTROL;
    } else if (label.Style() == LabelStyle::Literal && label.Text().find(L'\n') == std::wstring::npos) {
      format |= DT_END_ELLIPSIS | DT_SINGLELINE;
    } else {
      format |= DT_NOCLIP;  // letters may reach a little beyond their measured width
    }
    const Selected font(dc_, label.Style() == LabelStyle::Heading ? fonts_.Heading() : fonts_.Normal());
    Write(dc_, label.Text(), area_, format);
  }

  void Visit(Frame& frame) override {
    if (frame.Text().empty()) return;
    const Size title = fonts_.Measure(WithoutAccessKeys(frame.Text()), 0, false);
    RECT border = area_;
    border.top += title.height / 2;
    const UniqueBrush line(
        CreateSolidBrush(colours_.contrast ? colours_.line : Mix(colours_.line, colours_.ground, 35)));
    FrameRect(dc_, &border, line.Get());
    const Rect text{state_.rect.x + fonts_.Pixels(8), state_.rect.y, title.width, title.height};
    RECT behind = NativeRect(text);
    InflateRect(&behind, fonts_.Pixels(3), 0);
    Fill(dc_, behind, colours_.ground);
    Write(dc_, frame.Text(), NativeRect(text), DT_SINGLELINE | DT_NOCLIP | Keys());
  }

  void Visit(ProgressBox& progress) override {
    const RECT inside = FillBox(dc_, area_, colours_.line, colours_.field);
    RECT done = inside;
    done.right = done.left + MulDiv(done.right - done.left, progress.Percent(), 100);
    Fill(dc_, done, colours_.accent);
    if (progress.Percent() == 0 || !progress.HasFigure()) return;
    // Each half of the figure in the colour that stands out there.
    const std::wstring figure = std::to_wstring(progress.Percent()) + L" %";
    for (const bool within : {false, true}) {
      const int saved = SaveDC(dc_);
      if (within) {
        IntersectClipRect(dc_, done.left, done.top, done.right, done.bottom);
      } else {
        ExcludeClipRect(dc_, done.left, done.top, done.right, done.bottom);
      }
      SetTextColor(dc_, within ? colours_.onAccent : colours_.text);
      Write(dc_, figure, inside, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
      RestoreDC(dc_, saved);
    }
  }

  void Visit(Button& button) override {
    if (button.Image().empty()) {
      DrawPushButton(button);
    } else {
      DrawPictureButton(button);
    }
    if (state_.focused) DrawFocus(area_, fonts_.Pixels(3));
  }
  void Visit(CheckBox& box) override {
    const RECT square = DrawTick(box, Rectangle);
    if (!box.Checked()) return;
    const UniquePen pen(CreatePen(PS_SOLID, fonts_.Pixels(2), state_.enabled ? colours_.accent : colours_.dimText));
    const Selected line(dc_, pen.Get());
    const auto at = [&](int x, int y) { return POINT{square.left + fonts_.Pixels(x), square.top + fonts_.Pixels(y)}; };
    const POINT tick[] = {at(3, 6), at(5, 9), at(10, 3)};
    Polyline(dc_, tick, 3);
  }
  void Visit(OptionButton& option) override {
    const RECT circle = DrawTick(option, Ellipse);
    if (!option.Checked()) return;
    const UniqueBrush brush(CreateSolidBrush(state_.enabled ? colours_.accent : colours_.dimText));
    const Selected line(dc_, GetStockObject(NULL_PEN)), inside(dc_, brush.Get());
    const int by = fonts_.Pixels(3);
    Ellipse(dc_, circle.left + by, circle.top + by, circle.right - by + 1, circle.bottom - by + 1);
  }

  void Visit(TextBox& box) override {
    DrawBox(state_.enabled && !box.ReadOnly());
    Write(dc_, box.Text(), NativeRect(InsideBox(box, state_.rect, fonts_)), DT_SINGLELINE | DT_NOPREFIX);
  }
  void Visit(ListBox& list) override {
    DrawBox(true);
    if (list.Count() == 0)
      DrawHint(dc_, NativeRect(InsideBox(list, state_.rect, fonts_)), list.Hint(), fonts_, colours_);
  }
  void Visit(TreeBox&) override { DrawBox(true); }
  void Visit(ComboBox&) override {}
  void Visit(Picture&) override {}

 private:
  UINT Keys() const { return state_.hidesKeys ? DT_HIDEPREFIX : 0; }
  COLORREF Ink() const { return state_.enabled ? colours_.text : colours_.dimText; }
  bool Lively() const { return state_.enabled && (state_.hot || state_.pressed); }

  void DrawBox(bool usable) {
    FillBox(dc_, area_, state_.focused ? colours_.accent : colours_.line, usable ? colours_.field : colours_.ground);
  }

  void DrawFocus(RECT around, int inset) {
    InflateRect(&around, -inset, -inset);
    SetTextColor(dc_, RGB(0, 0, 0));
    SetBkColor(dc_, RGB(0xFF, 0xFF, 0xFF));
    DrawFocusRect(dc_, &around);
  }

  void DrawPushButton(const Button& button) {
    const bool marked = button.Marked() && state_.enabled;
    const COLORREF plain = marked              ? colours_.accent
                           : colours_.contrast ? colours_.ground
                                               : Mix(colours_.field, colours_.text, colours_.dark ? 8 : 2);
    const COLORREF lively = Mix(plain, marked ? colours_.field : colours_.accent, state_.pressed ? 30 : 15);
    const bool outlined = marked || Lively() || (state_.isDefault && state_.enabled);
    const COLORREF line = state_.enabled || colours_.contrast ? colours_.line : Mix(colours_.line, colours_.ground, 50);
    const RECT inside = FillBox(dc_, area_, outlined ? colours_.accent : line,
                                !state_.enabled                  ? colours_.ground
                                : Lively() && !colours_.contrast ? lively
                                                                 : plain);
    if (marked) SetTextColor(dc_, colours_.onAccent);
    Write(dc_, button.Text(), inside, DT_SINGLELINE | DT_CENTER | DT_VCENTER | Keys());
  }

  // Flat, the picture above the text.
  void DrawPictureButton(const Button& button) {
    const COLORREF plain = colours_.field;
    const COLORREF lively = colours_.contrast ? plain : Mix(plain, colours_.accent, state_.pressed ? 25 : 10);
    const RECT inside = FillBox(dc_, area_, Lively() ? colours_.accent : colours_.line, Lively() ? lively : plain);
    if (button.Marked()) {
      RECT mark = inside;
      mark.top = mark.bottom - fonts_.Pixels(3);
      Fill(dc_, mark, colours_.accent);
    }
    const Image& picture = images_.Get(button.Image(), fonts_.Pixels(button.ImageSize()));
    const bool captioned = !button.Text().empty();
    const Rect all = state_.rect;
    const Size image = picture.Extent(std::max(0, all.width - 4));
    const int gap = captioned && image.height > 0 ? fonts_.Pixels(2) : 0;
    const int text = captioned ? fonts_.Measure(WithoutAccessKeys(button.Text()), 0, false).height : 0;
    const int top = all.y + (all.height - image.height - gap - text) / 2;
    picture.Draw(dc_, {all.x + (all.width - image.width) / 2, top, image.width, image.height}, !state_.enabled);
    const RECT below{area_.left + 2, top + image.height + gap, area_.right - 2, area_.bottom};
    if (captioned) Write(dc_, button.Text(), below, DT_SINGLELINE | DT_END_ELLIPSIS | DT_CENTER | DT_TOP | Keys());
  }

  // Returns where the tick goes.
  RECT DrawTick(const Control& control, BOOL(WINAPI* shape)(HDC, int, int, int, int)) {
    const int side = fonts_.Pixels(13);
    const int top = state_.rect.y + (state_.rect.height - side) / 2;
    const RECT box{area_.left, top, area_.left + side, top + side};
    const UniquePen pen(CreatePen(PS_SOLID, fonts_.Pixels(1), Lively() ? colours_.accent : colours_.line));
    const UniqueBrush field(CreateSolidBrush(colours_.field));
    {
      const Selected line(dc_, pen.Get()), inside(dc_, field.Get());
      shape(dc_, box.left, box.top, box.right, box.bottom);
    }
    RECT text = area_;
    text.left = box.right + fonts_.Pixels(4);
    Write(dc_, control.Text(), text, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP | Keys());
    if (state_.focused) DrawFocus(text, 0);
    return box;
  }

  HDC dc_;
  const DrawnState& state_;
  const Fonts& fonts_;
  const Palette& colours_;
  Images& images_;
  RECT area_;
  Selected font_;
};

}  // namespace

void DrawControl(HDC dc, Control& control, const DrawnState& state, const Look& look) {
  Drawing drawing(dc, state, look);
  control.Accept(drawing);
}

bool HasDrawnFace(const Control& control) {
  return dynamic_cast<const Button*>(&control) != nullptr || dynamic_cast<const CheckBox*>(&control) != nullptr ||
         dynamic_cast<const OptionButton*>(&control) != nullptr;
}

bool CanWait(const Control& control) {
  if (const auto* list = dynamic_cast<const ListBox*>(&control)) return list->Count() == 0 && list->Columns().empty();
  return HasDrawnFace(control) || dynamic_cast<const TextBox*>(&control) != nullptr;
}

bool HasBox(const Control& control) {
  return dynamic_cast<const TextBox*>(&control) != nullptr || dynamic_cast<const ListBox*>(&control) != nullptr ||
         dynamic_cast<const TreeBox*>(&control) != nullptr;
}

Rect InsideBox(const Control& control, Rect rect, const Fonts& fonts) {
  if (!HasBox(control)) return rect;
  if (dynamic_cast<const TextBox*>(&control) == nullptr) {
    return {rect.x + 1, rect.y + 1, std::max(0, rect.width - 2), std::max(0, rect.height - 2)};
  }
  const int line = std::min(rect.height, fonts.Measure({}, 0, false).height), padding = fonts.Pixels(4);
  return {rect.x + padding, rect.y + (rect.height - line) / 2, std::max(0, rect.width - 2 * padding), line};
}

std::wstring CutOffText(const Control& control, Size room, const Fonts& fonts) {
  const auto* label = dynamic_cast<const Label*>(&control);
  const bool shortens =
      label != nullptr && (label->Style() == LabelStyle::Path || label->Style() == LabelStyle::Literal);
  return shortens && fonts.Measure(label->Text(), 0, false).width > room.width ? WithoutAccessKeys(label->Text())
                                                                               : std::wstring();
}

void DrawHint(HDC dc, RECT area, const std::wstring& hint, const Fonts& fonts, const Palette& palette) {
  if (hint.empty()) return;
  InflateRect(&area, -fonts.Pixels(12), -fonts.Pixels(12));
  const Selected font(dc, fonts.Normal());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, palette.Of(Ink::DimText));
  Write(dc, hint, area, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX);
}

}  // namespace tagrix
