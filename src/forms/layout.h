// Where controls stand: a tree of rows, columns and frames, arranged by a pure function.
#ifndef TAGRIX_FORMS_LAYOUT_H
#define TAGRIX_FORMS_LAYOUT_H

#include <string_view>
#include <utility>
#include <vector>

#include "forms/control.h"
#include "forms/geometry.h"

namespace tagrix {

// The distances, in units: between what belongs together, and between groups and around what stands in a window.
inline constexpr int kGap = 6, kWideGap = 2 * kGap;
// The height of the buttons that a page or a dialog is there for.
inline constexpr int kTallButton = 34;

// One place of the tree. All lengths are in device-independent units (1/96 inch).
struct Node {
  enum class Kind { Control, Row, Column, Stack, Spacer };

  Node(Control& only) : control(&only) {}  // NOLINT(google-explicit-constructor): a control stands for its node
  Node(Kind of, std::vector<Node> inner) : kind(of), children(std::move(inner)) {}

  Kind kind = Kind::Control;
  Control* control = nullptr;  // the control shown; on a row, column or stack: the frame around it, if any
  std::vector<Node> children;
  int stretch = 0;  // share of the spare room along the parent's direction
  int minWidth = 0, minHeight = 0;
  int wrapAt = 0;  // labels: wrap the text at this width; 0 keeps it on its own lines
  int gap = kGap;  // between children
  int margin = 0;  // around the children
};

// Children side by side; each gets its natural size, those that stretch share what is left over. Across a row, lists,
// trees, pictures and groups take the whole height, everything else its own height, centred. Across a column everything
// takes the whole width.
Node Row(std::vector<Node> children);
Node Column(std::vector<Node> children);
// Children on top of each other, each as large as the whole: pages of which one is visible.
Node Stack(std::vector<Node> children);
// A frame around a group. Invisible controls and frames, and what is in them, take no room (in a stack they do).
Node Framed(Frame& frame, Node group);
// Empty room that stretches.
Node Spacer(int stretch = 1);

// Decorations, to be wrapped around any node.
Node Stretch(int stretch, Node node);
Node MinSize(int width, int height, Node node);
Node Wrap(int width, Node label);
Node Margin(int margin, Node group);
Node Gap(int gap, Node group);

// Measures texts as the renderer will draw them, in pixels of the DPI it was made for.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // `wrapAt` in pixels, 0: only at line ends in the text. `style` picks the font.
  virtual Size Measure(std::wstring_view text, int wrapAt, bool heading) const = 0;
};

struct Placement {
  Control* control;
  Rect rect;            // pixels
  bool visible = true;  // itself and every frame around it
  bool enabled = true;  // likewise
};

// The places of all controls of the tree, in its order (which is the tab order), frames before what is in them.
std::vector<Placement> Arrange(const Node& tree, Rect room, int dpi, const TextMeasurer& texts);
// The least size in pixels in which nothing is cut off.
Size MinimumSize(const Node& tree, int dpi, const TextMeasurer& texts);

}  // namespace tagrix

#endif
