// What the tests of dialogs and side pages share: files to measure, a canvas to look at, and a user who agrees.
#ifndef TAGRIX_TESTS_DIALOGS_FIXTURES_H
#define TAGRIX_TESTS_DIALOGS_FIXTURES_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "fakes/fakes.h"
#include "forms/lists.h"
#include "forms/picture.h"

namespace tagrix {

// An MP3 file of silent frames of 32 kbit/s, 24 ms each; the last one is cut where the time is no multiple. From 64 ms.
inline std::string SmallMp3(int milliseconds) {
  const std::string frame = std::string("\xFF\xFB\x14\x00", 4) + std::string(92, '\0');
  std::string bytes;
  for (; milliseconds > 0; milliseconds -= 24) bytes += frame.substr(0, static_cast<std::size_t>(milliseconds) * 4);
  return bytes;
}

inline void PressOk(Form& form) { Find<Button>(form.layout, "ok_btn").Click(); }

// Opens a folder in the folder chooser and agrees.
inline std::function<void(Form&)> Pick(std::wstring folder, bool recurse = false) {
  return [folder = std::move(folder), recurse](Form& form) {
    Find<TreeBox>(form.layout, "Dir1").SetPath(folder);
    if (recurse) Find<CheckBox>(form.layout, "recurse_chk").Click();
    PressOk(form);
  };
}

// Keeps what is drawn.
struct SketchCanvas : Canvas {
  explicit SketchCanvas(Size size) : extent(size) {}
  Size Extent() const override { return extent; }
  void Fill(Rect area, Ink ink) override { fills.emplace_back(ink, area); }
  void Line(Point from, Point to, Ink) override { ends.insert(ends.end(), {from, to}); }
  void Text(Rect, std::wstring_view text, TextPlace, Ink) override { texts.emplace_back(text); }
  std::vector<Rect> Filled(Ink wanted) const {
    std::vector<Rect> areas;
    for (const auto& [ink, area] : fills) {
      if (ink == wanted) areas.push_back(area);
    }
    return areas;
  }

  Size extent;
  std::vector<std::pair<Ink, Rect>> fills;
  std::vector<Point> ends;  // of lines
  std::vector<std::wstring> texts;
};

}  // namespace tagrix

#endif
