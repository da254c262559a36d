// Points, sizes and rectangles.
#ifndef TAGRIX_FORMS_GEOMETRY_H
#define TAGRIX_FORMS_GEOMETRY_H

namespace tagrix {

struct Point {
  int x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0, height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  int x = 0, y = 0, width = 0, height = 0;
  bool operator==(const Rect&) const = default;
};

}  // namespace tagrix

#endif
