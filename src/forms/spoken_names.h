// The names by which screen readers know the controls.
#ifndef TAGRIX_FORMS_SPOKEN_NAMES_H
#define TAGRIX_FORMS_SPOKEN_NAMES_H

#include <string>
#include <vector>

#include "forms/layout.h"

namespace tagrix {

struct SpokenName {
  const Control* control;
  std::wstring name;
  bool fromLabel = false;  // the label right before it says it
};

// The names of all controls of a layout that the user can work with or that show something, in its order: a spoken name
// of their own, else the caption (the tooltip of a button that shows only a picture), else the label right before them,
// else the title of the frame around them.
std::vector<SpokenName> SpokenNames(const Node& layout);

}  // namespace tagrix

#endif
