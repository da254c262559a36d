// Owners of the drawing system's handles.
#ifndef TAGRIX_WIN32_WINDOWS_GDI_H
#define TAGRIX_WIN32_WINDOWS_GDI_H

#include "forms/geometry.h"
#include "win32/ports/unique.h"

namespace tagrix {

template <typename Kind>
struct GdiTraits {
  using Handle = Kind;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { DeleteObject(handle); }
};
using UniqueFont = Unique<GdiTraits<HFONT>>;
using UniqueBitmap = Unique<GdiTraits<HBITMAP>>;
using UniqueBrush = Unique<GdiTraits<HBRUSH>>;
using UniquePen = Unique<GdiTraits<HPEN>>;

struct IconTraits {
  using Handle = HICON;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { DestroyIcon(handle); }
};
using UniqueIcon = Unique<IconTraits>;

struct MemoryDcTraits {
  using Handle = HDC;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { DeleteDC(handle); }
};
using UniqueMemoryDc = Unique<MemoryDcTraits>;

inline RECT NativeRect(const Rect& rect) { return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height}; }

// Selects an object into a device context for as long as it lives.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

// A device context that draws into memory and is copied to the target at the end: no flicker.
class Buffered {
 public:
  Buffered(HDC target, const RECT& area)
      : target_(target),
        area_(area),
        bitmap_(CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
        dc_(CreateCompatibleDC(target)),
        selected_(dc_.Get(), bitmap_.Get()) {
    SetWindowOrgEx(dc_.Get(), area.left, area.top, nullptr);
  }
  ~Buffered() {
    BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_.Get(), area_.left,
           area_.top, SRCCOPY);
  }
  Buffered(const Buffered&) = delete;
  Buffered& operator=(const Buffered&) = delete;
  HDC Dc() const { return dc_.Get(); }

 private:
  HDC target_;
  RECT area_;
  UniqueBitmap bitmap_;
  UniqueMemoryDc dc_;
  Selected selected_;
};

}  // namespace tagrix

#endif
