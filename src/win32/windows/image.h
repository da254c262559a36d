// Pictures from files, ready to be drawn at one size.
#ifndef TAGRIX_WIN32_WINDOWS_IMAGE_H
#define TAGRIX_WIN32_WINDOWS_IMAGE_H

#include <map>
#include <string>
#include <utility>

#include "forms/geometry.h"
#include "win32/windows/gdi.h"

namespace tagrix {

class Image {
 public:
  // An icon file, or any picture that the system can read, drawn `height` pixels high. A file that is missing or broken
  // makes an empty image.
  void Load(const std::wstring& path, int height);
  // Its size in proportion, but no wider than that.
  Size Extent(int widest) const;
  void Draw(HDC dc, Rect area, bool faded) const;

 private:
  UniqueBitmap bitmap_;  // premultiplied alpha
  Size pixels_;          // of the bitmap
  int height_ = 0;
};

// Pictures that are loaded when they are first drawn.
class Images {
 public:
  const Image& Get(const std::wstring& path, int height) {
    const auto [place, isNew] = loaded_.try_emplace({path, height});
    if (isNew) place->second.Load(path, height);
    return place->second;
  }

 private:
  std::map<std::pair<std::wstring, int>, Image> loaded_;
};

}  // namespace tagrix

#endif
