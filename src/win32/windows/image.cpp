#include "win32/windows/image.h"

// Need windows.h and COM's types before them.
#include <objidl.h>
//
#include <gdiplus.h>

#include "base/letter_case.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr BYTE kFaded = 120;  // of 255

namespace flat = Gdiplus::DllExports;

// GDI+ from its start to its end.
class Decoder {
 public:
  Decoder() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) token_ = 0;
  }
  ~Decoder() {
    if (token_ != 0) Gdiplus::GdiplusShutdown(token_);
  }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  UniqueBitmap Read(const std::wstring& path) const {
    UniqueBitmap result;
    Gdiplus::GpBitmap* picture = nullptr;
    if (token_ == 0 || flat::GdipCreateBitmapFromFile(path.c_str(), &picture) != Gdiplus::Ok) return result;
    HBITMAP bitmap = nullptr;
    if (flat::GdipCreateHBITMAPFromBitmap(picture, &bitmap, 0) == Gdiplus::Ok) result.Reset(bitmap);
    flat::GdipDisposeImage(picture);
    return result;
  }

 private:
  ULONG_PTR token_ = 0;
};

// A 32-bit bitmap holding the icon; the drawing system premultiplies by itself.
UniqueBitmap FromIcon(HICON icon, int side) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = side;
  info.bmiHeader.biHeight = -side;  // from the top row down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  UniqueBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0));
  const UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
  const Selected selected(dc.Get(), bitmap.Get());
  DrawIconEx(dc.Get(), 0, 0, icon, side, side, 0, nullptr, DI_NORMAL);
  return bitmap;
}

}  // namespace

void Image::Load(const std::wstring& path, int height) {
  *this = Image();
  if (path.size() > 4 && EqualIgnoringCase(path.substr(path.size() - 4), L".ico")) {
    const UniqueIcon icon(
        static_cast<HICON>(LoadImageW(nullptr, path.c_str(), IMAGE_ICON, height, height, LR_LOADFROMFILE)));
    if (icon) bitmap_ = FromIcon(icon.Get(), height);
  } else if (!path.empty()) {
    bitmap_ = Decoder().Read(path);
  }
  BITMAP facts{};
  if (!bitmap_ || GetObjectW(bitmap_.Get(), sizeof facts, &facts) == 0) return;
  pixels_ = {static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight)};
  height_ = height;
}

Size Image::Extent(int widest) const {
  if (pixels_.width == 0 || pixels_.height == 0) return {};
  const int width = MulDiv(pixels_.width, height_, pixels_.height);
  if (width <= widest) return {width, height_};
  return {widest, MulDiv(height_, widest, width)};
}

void Image::Draw(HDC dc, Rect area, bool faded) const {
  if (!bitmap_) return;
  const UniqueMemoryDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.Get(), bitmap_.Get());
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, faded ? kFaded : BYTE{255}, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, area.x, area.y, area.width, area.height, memory.Get(), 0, 0, pixels_.width, pixels_.height, blend);
}

}  // namespace tagrix
