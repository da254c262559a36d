#include "forms/layout.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "forms/buttons.h"
#include "forms/captions.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

// Measures of the usual Windows controls, in device-independent units.
constexpr Size kButton{75, 23};
constexpr int kButtonPadding = 8;  // between the edge and the text at both sides
constexpr int kImagePadding = 6;   // around a button's picture
constexpr int kTick = 20;          // the box or circle with the gap before its text
constexpr Size kField{70, 23};     // text boxes and combo boxes
constexpr Size kEditableCombo{120, 23};
constexpr int kFieldPadding = 4;
constexpr int kDropArrow = 24;
constexpr int kWidestCombo = 240;    // longer entries are cut off in the closed combo
constexpr int kWidestLiteral = 320;  // texts of any origin must not widen the window without end
constexpr int kNarrowestPath = 40;
constexpr Size kList{120, 90};
constexpr Size kTree{160, 140};
constexpr Size kProgress{90, 15};
constexpr Size kPicture{60, 40};
constexpr int kFrameInset = 9;  // between a titled frame's border and what is in it

struct Scale {
  int dpi;
  const TextMeasurer& texts;

  int operator()(int units) const { return (units * dpi + 48) / 96; }
  Size operator()(Size size) const { return {(*this)(size.width), (*this)(size.height)}; }
  Size Caption(const std::wstring& text, int wrapAt = 0, bool heading = false) const {
    return texts.Measure(WithoutAccessKeys(text), wrapAt, heading);
  }
};

Size Largest(Size a, Size b) { return {std::max(a.width, b.width), std::max(a.height, b.height)}; }

// The natural size of one control.
class ControlSize : public ControlVisitor {
 public:
  ControlSize(Control& control, int wrapAt, const Scale& scale) : scale_(scale), wrapAt_(scale(wrapAt)) {
    control.Accept(*this);
  }
  Size size;
  bool tall = false;  // takes the whole height of a row

  void Visit(Button& button) override {
    const Size text = scale_.Caption(button.Text());
    const int padding = scale_(kButtonPadding);
    size = {text.width + 2 * padding, text.height + padding};
    if (button.Image().empty()) {
      size = Largest(size, scale_(kButton));
      return;
    }
    const int image = scale_(button.ImageSize()) + 2 * scale_(kImagePadding);
    size = {std::max(image, button.Text().empty() ? 0 : size.width), image};
    if (!button.Text().empty()) size.height += text.height;
  }
  void Visit(CheckBox& box) override { Tick(box); }
  void Visit(OptionButton& option) override { Tick(option); }
  void Visit(Label& label) override {
    switch (label.Style()) {
      case LabelStyle::Path:
        size = {scale_(kNarrowestPath), scale_.Caption(label.Text()).height};
        return;
      case LabelStyle::Literal:
        size = scale_.texts.Measure(label.Text(), wrapAt_, false);
        if (wrapAt_ == 0) size.width = std::min(size.width, scale_(kWidestLiteral));
        break;
      case LabelStyle::Caption:
      case LabelStyle::Heading:
        size = scale_.Caption(label.Text(), wrapAt_, label.Style() == LabelStyle::Heading);
    }
    if (wrapAt_ > 0) size.width = std::min(size.width, wrapAt_);
  }
  void Visit(TextBox&) override { size = Field(); }
  void Visit(ListBox&) override { Area(kList); }
  void Visit(ComboBox& combo) override {
    size = Field();
    if (combo.Editable()) {
      size = Largest(size, scale_(kEditableCombo));
      return;
    }
    int widest = 0;
    for (int i = 0; i < combo.Count(); ++i) {
      widest = std::max(widest, scale_.texts.Measure(combo.ItemText(i), 0, false).width);
    }
    size.width = std::max(size.width, std::min(widest, scale_(kWidestCombo)) + scale_(kDropArrow + 2 * kFieldPadding));
  }
  void Visit(Frame&) override {}
  void Visit(ProgressBox&) override { size = scale_(kProgress); }
  void Visit(TreeBox&) override { Area(kTree); }
  void Visit(Picture&) override { Area(kPicture); }

 private:
  void Tick(const Control& control) {
    const Size text = scale_.Caption(control.Text());
    size = {text.width + scale_(kTick), std::max(text.height, scale_(kTick) - scale_(3))};
  }
  // High enough for the font whatever the text.
  Size Field() const {
    return Largest(scale_(kField), {0, scale_.texts.Measure(L"X", 0, false).height + 2 * scale_(kFieldPadding)});
  }
  void Area(Size units) {
    size = scale_(units);
    tall = true;
  }

  const Scale& scale_;
  int wrapAt_;
};

// A node with its natural size.
struct Box {
  explicit Box(const Node& of) : node(&of) {}

  const Node* node;
  Size size;
  bool present = true;  // takes room
  bool tall = false;
  int left = 0, top = 0, right = 0, bottom = 0;  // what margin and frame take
  std::vector<Box> inner;
};

bool Shown(const Node& node) { return node.control == nullptr || node.control->Visible(); }

// Title and border of a frame, and the margin.
void Inset(Box& box, const Scale& scale) {
  const int margin = scale(box.node->margin);
  box.left = box.top = box.right = box.bottom = margin;
  if (box.node->control == nullptr || box.node->control->Text().empty()) return;
  const int border = scale(kFrameInset);
  box.left += border;
  box.right += border;
  box.bottom += border;
  const Size title = scale.Caption(box.node->control->Text());
  box.top += title.height + scale(kGap);
  box.size.width = title.width + 2 * border;
}

int Along(Size size, bool row) { return row ? size.width : size.height; }

// Adds up what the present children of a group need, without insets.
Size Content(const Box& box, const Scale& scale) {
  const bool row = box.node->kind == Node::Kind::Row;
  Size content;
  int along = 0, count = 0;
  for (const Box& child : box.inner) {
    if (!child.present) continue;
    content = Largest(content, child.size);
    along += Along(child.size, row);
    ++count;
  }
  if (box.node->kind == Node::Kind::Stack || count == 0) return content;
  (row ? content.width : content.height) = along + (count - 1) * scale(box.node->gap);
  return content;
}

Box Measure(const Node& node, const Scale& scale) {
  Box box(node);
  switch (node.kind) {
    case Node::Kind::Spacer:
      break;
    case Node::Kind::Control: {
      const ControlSize natural(*node.control, node.wrapAt, scale);
      box.size = natural.size;
      box.tall = natural.tall;
      break;
    }
    case Node::Kind::Row:
    case Node::Kind::Column:
    case Node::Kind::Stack: {
      box.tall = true;
      // An empty group is there for the room it was given; one whose controls are all hidden takes none.
      box.present = node.children.empty() && (node.minWidth > 0 || node.minHeight > 0);
      for (const Node& child : node.children) {
        Box inner = Measure(child, scale);
        // The pages of a stack keep their room while another one is shown.
        inner.present |= node.kind == Node::Kind::Stack;
        box.present |= inner.present && child.kind != Node::Kind::Spacer;
        box.inner.push_back(std::move(inner));
      }
      Inset(box, scale);
      const Size content = Content(box, scale);
      box.size = Largest(box.size, {content.width + box.left + box.right, content.height + box.top + box.bottom});
    }
  }
  box.present &= Shown(node);
  box.size = Largest(box.size, scale(Size{node.minWidth, node.minHeight}));
  return box;
}

class Arranger {
 public:
  Arranger(const Scale& scale, std::vector<Placement>& placements) : scale_(scale), placements_(placements) {}

  void Place(const Box& box, Rect room, bool visible, bool enabled) {
    if (Control* control = box.node->control) {
      visible &= control->Visible();
      enabled &= control->Enabled();
      placements_.push_back({control, room, visible, enabled});
    }
    const Rect inside{room.x + box.left, room.y + box.top, std::max(0, room.width - box.left - box.right),
                      std::max(0, room.height - box.top - box.bottom)};
    if (box.node->kind == Node::Kind::Stack) {
      for (const Box& child : box.inner) Place(child, inside, visible, enabled);
    } else {
      PlaceInLine(box, inside, visible, enabled);
    }
  }

 private:
  void PlaceInLine(const Box& box, Rect inside, bool visible, bool enabled) {
    const bool row = box.node->kind == Node::Kind::Row;
    const Size content = Content(box, scale_);
    const int spare = std::max(0, row ? inside.width - content.width : inside.height - content.height);
    const int shares = std::accumulate(box.inner.begin(), box.inner.end(), 0, [](int sum, const Box& child) {
      return sum + (child.present ? child.node->stretch : 0);
    });
    int at = row ? inside.x : inside.y, sharesGiven = 0, given = 0;
    for (const Box& child : box.inner) {
      if (!child.present) {
        Place(child, {row ? at : inside.x, row ? inside.y : at, 0, 0}, false, enabled);
        continue;
      }
      // By what has been given so far, so that rounding leaves nothing over.
      sharesGiven += child.node->stretch;
      const int extra = shares == 0 ? 0 : spare * sharesGiven / shares - given;
      given += extra;
      const int length = Along(child.size, row) + extra;
      Place(child, row ? InRow(child, inside, at, length) : Rect{inside.x, at, inside.width, length}, visible, enabled);
      at += length + scale_(box.node->gap);
    }
  }
  static Rect InRow(const Box& child, Rect inside, int x, int width) {
    if (child.tall) return {x, inside.y, width, inside.height};
    return {x, inside.y + (inside.height - child.size.height) / 2, width, child.size.height};
  }

  const Scale& scale_;
  std::vector<Placement>& placements_;
};

}  // namespace

Node Row(std::vector<Node> children) { return {Node::Kind::Row, std::move(children)}; }
Node Column(std::vector<Node> children) { return {Node::Kind::Column, std::move(children)}; }
Node Stack(std::vector<Node> children) { return {Node::Kind::Stack, std::move(children)}; }

Node Framed(Frame& frame, Node group) {
  if (group.control != nullptr) group = Column({Stretch(1, std::move(group))});
  group.control = &frame;
  return group;
}

Node Spacer(int stretch) { return Stretch(stretch, {Node::Kind::Spacer, {}}); }

Node Stretch(int stretch, Node node) {
  node.stretch = stretch;
  return node;
}

Node MinSize(int width, int height, Node node) {
  node.minWidth = width;
  node.minHeight = height;
  return node;
}

Node Wrap(int width, Node label) {
  label.wrapAt = width;
  return label;
}

Node Margin(int margin, Node group) {
  group.margin = margin;
  return group;
}

Node Gap(int gap, Node group) {
  group.gap = gap;
  return group;
}

std::vector<Placement> Arrange(const Node& tree, Rect room, int dpi, const TextMeasurer& texts) {
  const Scale scale{dpi, texts};
  std::vector<Placement> placements;
  Arranger(scale, placements).Place(Measure(tree, scale), room, true, true);
  return placements;
}

Size MinimumSize(const Node& tree, int dpi, const TextMeasurer& texts) { return Measure(tree, Scale{dpi, texts}).size; }

}  // namespace tagrix
